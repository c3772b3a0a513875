// The examples in docs/files.md are what the program writes and reads.
#include "kit/connect_requests.h"
#include "kit/test_folder.h"
#include "paymail/kept_names.h"
#include "settings/settings_store.h"
#include "text/json.h"
#include "wallet_bridge/binding.h"
#include "wallet_bridge/connect.h"
#include "wallet_bridge/house_labels.h"
#include "wallet_bridge/loaded_wallet.h"
#include "wallet_bridge/spent_snapshot.h"
#include "wallet_bridge/wallet_identity.h"
#include "wallet_bridge/wallet_list.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace {

constexpr char kId[] = "1700000000000";
constexpr char kWallet[] = "wallets/1700000000000/wallet.json";
constexpr char kLockedWallet[] = "wallets/1700000000001/wallet.json";
constexpr char kWalletList[] = "wallets.json";
constexpr char kHouseLabels[] = "corvane_paymail.json";

const std::string& document()
{
    static const std::string text = [] {
        std::ostringstream all;
        all << std::ifstream(BRASSLET_DOCS "/files.md").rdbuf();
        return all.str();
    }();
    return text;
}

// The example below the heading of `path`, as it would stand in the file.
std::string example(const std::string& path)
{
    static const std::string kStart = "```json\n";
    const std::size_t heading = document().find("\n## `" + path + "`\n");
    const std::size_t start = document().find(kStart, heading) + kStart.size();
    const std::size_t end = document().find("\n```\n", start);
    if (heading == std::string::npos || end == std::string::npos) throw std::runtime_error("no example of " + path);
    return document().substr(start, end - start);
}

// A program that is bound to the wallet of the examples.
class DocumentedFiles : public testing::Test {
protected:
    DocumentedFiles()
    {
        put(kWallet);
        put(kWalletList);
        bind_at_startup("C:\\Tools\\Brasslet", "Brasslet");
    }
    void put(const std::string& path) const { folder.write(path, example(path)); }
    void expect_as_documented(const std::string& path) const { EXPECT_EQ(folder.read(path), example(path)); }

    TestFolder folder;
};

}  // namespace

TEST_F(DocumentedFiles, TheBindRecord)
{
    expect_as_documented("binds/c__tools_brasslet.json");
}

TEST_F(DocumentedFiles, TheWalletList)
{
    folder.write(kWalletList, R"({"wallets":[{"name":"Wallet 1","id":"1700000000000"}],"active":"1700000000000"})");
    set_registry_name_from_paymail(kId, "ada");
    expect_as_documented(kWalletList);
}

TEST_F(DocumentedFiles, TheWalletIsWrittenBackAsItIs)
{
    HeldWallet held = hold_wallet();
    nlohmann::json without_paymail = parse_json(example(kWallet));
    without_paymail.erase("paymail");
    folder.write(kWallet, without_paymail.dump());
    ASSERT_TRUE(load_wallet(held));
    held->wallet->paymail = "ada";
    ASSERT_TRUE(save_wallet(held));
    expect_as_documented(kWallet);
}

TEST_F(DocumentedFiles, TheOlderWalletHasASingleKey)
{
    const nlohmann::json wallet = parse_json(example("corvane_vaultry.json"));
    folder.write(kWallet, wallet.dump());
    EXPECT_EQ(identity_pubkey(), text_member(wallet, "pub"));
    EXPECT_EQ(wallet_address(), text_member(wallet, "address"));
    EXPECT_FALSE(wallet_ready());
}

TEST_F(DocumentedFiles, TheLockedWallet)
{
    folder.write(kWallet, example(kLockedWallet));
    HeldWallet held = hold_wallet();
    EXPECT_TRUE(is_wallet_locked());
    EXPECT_FALSE(load_wallet(held));
}

TEST_F(DocumentedFiles, TheSeal)
{
    EXPECT_FALSE(is_wallet_locked());
    folder.write(std::string(kWallet) + ".seal", "");
    EXPECT_TRUE(is_wallet_locked());
}

TEST_F(DocumentedFiles, TheConnectRequest)
{
    const std::string id = write_connect_request();
    nlohmann::json request = parse_json(folder.read("connect/" + id + ".req.json"));
    request["id"] = "1763000000000";
    request["ts"] = 1763000000;
    EXPECT_EQ(pretty_json(request), example("connect/1763000000000.req.json"));
}

TEST_F(DocumentedFiles, TheConnectReply)
{
    unbind_wallet();
    put("connect/1763000000000.rep.json");
    EXPECT_EQ(read_connect_reply("1763000000000"), ReplyState::approved);
    EXPECT_EQ(bound_wallet_id(), kId);
}

TEST_F(DocumentedFiles, TheHouseLabels)
{
    const std::string key = identity_pubkey().value_or("");
    EXPECT_EQ(register_house_label("ada", key, {.payment = wallet_address().value_or(""), .ordinals = {}}), "");
    EXPECT_EQ(set_house_avatar(key, "1b2e"), "");
    EXPECT_TRUE(wallet_ready());  // a load notes the ordinals address
    expect_as_documented(kHouseLabels);
}

TEST_F(DocumentedFiles, TheSpentItems)
{
    put("ord_snap/1700000000000_spent.json");
    EXPECT_EQ(read_spent_snapshot(spent_snapshot_key(kId, "", "")).size(), 1U);
}

TEST_F(DocumentedFiles, TheSettings)
{
    SiteSettings settings;
    settings.site = "https://brasslet.test";
    settings.user = "owner";
    settings.pass = StoredPassword(SecretText("abcdefgh"));
    ASSERT_EQ(save_settings(settings, "alice"), SettingsNotice::none);
    nlohmann::json written = parse_json(folder.read("payname/ui.json"));
    EXPECT_NE(text_member(written, "pass"), "");
    written["pass"] = text_member(parse_json(example("payname/ui.json")), "pass");
    EXPECT_EQ(pretty_json(written), example("payname/ui.json"));
}

TEST_F(DocumentedFiles, TheKeptNames)
{
    ASSERT_TRUE(keep_payname({"alice@brasslet.test", identity_pubkey().value_or(""), wallet_address().value_or("")}));
    expect_as_documented("payname/payname.json");
}
