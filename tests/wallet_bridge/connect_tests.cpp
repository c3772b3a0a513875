// Connecting and letting go as far as the wallet application has no part in it.
#include "wallet_bridge/connect.h"

#include "kit/test_folder.h"
#include "kit/wallet_files.h"
#include "platform/files.h"
#include "text/clock.h"
#include "wallet_bridge/binding.h"
#include "wallet_bridge/loaded_wallet.h"
#include "wallet_bridge/wallet_events.h"
#include "wallet_bridge/wallet_identity.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using Lines = std::vector<std::string>;

const std::string kRecord = "binds/c__tools_brasslet.json";

// What an observer is told, events and log text in one list.
class Observer {
public:
    Observer()
    {
        const auto remember = [this](const std::string& line) { m_lines.push_back(line); };
        set_event_sink(remember);
        set_log_sink(remember);
    }
    Observer(const Observer&) = delete;
    Observer& operator=(const Observer&) = delete;
    ~Observer()
    {
        set_event_sink({});
        set_log_sink({});
    }

    const Lines& lines() const { return m_lines; }

private:
    Lines m_lines;
};

const Lines kNotice = {"[QX-VAULTRY]\x1fstatus", "This app is no longer connected to a Vaultry wallet.\n"};

constexpr char kId[] = "1700000000000";

ReplyState state_of(const TestFolder& folder, const std::string& reply)
{
    folder.write(std::string("connect/") + kId + ".rep.json", reply);
    return read_connect_reply(kId);
}

// A program that has started and is bound to no wallet.
class ConnectFiles : public testing::Test {
protected:
    ConnectFiles() { bind_at_startup("C:\\Tools\\Brasslet", "Brasslet"); }

    TestFolder m_folder;
};

}  // namespace

TEST(Connect, BeforeTheStartIsRefused)
{
    const TestFolder folder;
    const Observer observer;
    EXPECT_EQ(connect_wallet(), "error: connect is for apps, not the Vaultry vault.");
    EXPECT_EQ(observer.lines(), Lines{"[QX-VAULTRY]\x1f"
                                      "error\x1f"
                                      "error: connect is for apps, not the Vaultry vault."});
    EXPECT_FALSE(folder.has("connect"));
}

TEST(Connect, WhileBoundToALoadableWalletSucceedsWithoutTheWalletApplication)
{
    const TestFolder folder;
    bind_to_wallet(folder, phrase_wallet({{"paymail", "ann"}}));
    const Observer observer;
    EXPECT_EQ(connect_wallet(), "success");
    EXPECT_FALSE(folder.has("connect"));
    EXPECT_TRUE(folder.has("corvane_paymail.json"));  // the identity was refreshed
    ASSERT_EQ(observer.lines().size(), 1U);
    EXPECT_TRUE(observer.lines()[0].starts_with("[QX-VAULTRY]\x1fpaymail\x1f"
                                                "ann@"));
}

TEST(Disconnect, ForgetsTheWalletAndTheBinding)
{
    const TestFolder folder;
    bind_to_wallet(folder, phrase_wallet());
    const std::string list = folder.read("wallets.json");
    const std::string wallet = folder.read("wallets/1/wallet.json");
    ASSERT_TRUE(wallet_ready());
    ASSERT_TRUE(is_wallet_loaded());
    ASSERT_TRUE(folder.has(kRecord));
    const Observer observer;

    EXPECT_EQ(disconnect_wallet(), "success");
    EXPECT_FALSE(is_wallet_loaded());
    EXPECT_EQ(bound_wallet_id(), "");
    EXPECT_FALSE(folder.has(kRecord));
    EXPECT_FALSE(wallet_ready());
    EXPECT_EQ(observer.lines(), kNotice);
    EXPECT_EQ(folder.read("wallets.json"), list);
    EXPECT_EQ(folder.read("wallets/1/wallet.json"), wallet);
}

TEST(Disconnect, WhenNotBoundSucceedsAndTells)
{
    const TestFolder folder;
    bind_at_startup("C:\\Tools\\Brasslet", "Brasslet");
    const Observer observer;
    EXPECT_EQ(disconnect_wallet(), "success");
    EXPECT_EQ(observer.lines(), kNotice);
}

TEST(Disconnect, BeforeTheStartForgetsTheWalletAlone)
{
    const TestFolder folder;
    folder.write("corvane_vaultry.json", phrase_wallet().dump());
    ASSERT_TRUE(wallet_address().has_value());
    ASSERT_TRUE(is_wallet_loaded());
    EXPECT_EQ(disconnect_wallet(), "success");
    EXPECT_FALSE(is_wallet_loaded());
    EXPECT_FALSE(wallet_binding().is_initialised);
}

TEST(Disconnect, TheNextStartBindsTheOnlyWalletAgain)
{
    const TestFolder folder;
    bind_to_wallet(folder, phrase_wallet());
    EXPECT_EQ(disconnect_wallet(), "success");
    bind_at_startup("C:\\Tools\\Brasslet", "Brasslet");
    EXPECT_EQ(bound_wallet_id(), "1");
    EXPECT_TRUE(wallet_ready());
}

TEST_F(ConnectFiles, TheRequestNamesTheProgramItsFolderAndTheTime)
{
    const std::int64_t before = milliseconds_since_epoch();
    const std::string id = write_connect_request();
    const std::int64_t now = std::stoll(id);
    EXPECT_GE(now, before);
    EXPECT_LE(now, milliseconds_since_epoch());
    EXPECT_EQ(id, std::to_string(now));
    EXPECT_EQ(m_folder.read("connect/" + id + ".req.json"),
              "{\n  \"app\": \"Brasslet\",\n  \"id\": \"" + id +
                  "\",\n  \"instance\": \"C:\\\\Tools\\\\Brasslet\",\n  \"ts\": " + std::to_string(now / 1000) + "\n}");
    EXPECT_FALSE(m_folder.has("connect/" + id + ".rep.json"));
}

TEST_F(ConnectFiles, ARequestThatCannotBeWrittenHasNoId)
{
    m_folder.write("connect", "a file where the folder should be");
    EXPECT_EQ(write_connect_request(), "");
}

TEST(ConnectFilesBeforeTheStart, NoRequestIsWritten)
{
    const TestFolder folder;
    EXPECT_EQ(write_connect_request(), "");
    EXPECT_FALSE(folder.has("connect"));
}

TEST_F(ConnectFiles, WithoutAReplyTheStateIsPending)
{
    EXPECT_EQ(read_connect_reply(kId), ReplyState::pending);
    m_folder.write("connect/1699999999999.rep.json", R"({"ok":true})");
    EXPECT_EQ(read_connect_reply(kId), ReplyState::pending);
}

TEST_F(ConnectFiles, WithoutARequestEveryReplyIsARefusal)
{
    m_folder.write("connect/.rep.json", R"({"ok":true})");
    EXPECT_EQ(read_connect_reply(""), ReplyState::denied);
}

TEST_F(ConnectFiles, AnApprovalBindsTheWalletThatItNames)
{
    EXPECT_EQ(state_of(m_folder, R"({"note":[1],"ok":true,"wallet_id":"7"})"), ReplyState::approved);
    EXPECT_EQ(bound_wallet_id(), "7");
    EXPECT_TRUE(m_folder.has("binds/c__tools_brasslet.json"));
}

TEST_F(ConnectFiles, AnApprovalWithoutAWalletBindsNone)
{
    for (const char* reply : {R"({"ok":true})", R"({"ok":true,"wallet_id":""})"}) {
        EXPECT_EQ(state_of(m_folder, reply), ReplyState::approved) << reply;
        EXPECT_EQ(bound_wallet_id(), "") << reply;
    }
    bind_wallet("3");
    EXPECT_EQ(state_of(m_folder, R"({"ok":true})"), ReplyState::approved);
    EXPECT_EQ(bound_wallet_id(), "3");
}

TEST_F(ConnectFiles, EverythingElseIsARefusalAndBindsNothing)
{
    for (const char* reply : {"",
                              " ",
                              "yes",
                              "{",
                              "[]",
                              "true",
                              "null",
                              R"("ok")",
                              "{}",
                              R"({"wallet_id":"7"})",
                              R"({"ok":false,"wallet_id":"7"})",
                              R"({"ok":1,"wallet_id":"7"})",
                              R"({"ok":"true","wallet_id":"7"})",
                              R"({"ok":null,"wallet_id":"7"})",
                              R"({"ok":[true],"wallet_id":"7"})",
                              R"({"OK":true,"wallet_id":"7"})",
                              R"({"ok":true,"wallet_id":7})",
                              R"({"ok":true,"wallet_id":null})",
                              R"({"ok":true,"wallet_id":["7"]})",
                              R"([{"ok":true,"wallet_id":"7"}])",
                              R"({"ok":true,"wallet_id":"7"} more)",
                              "{\"ok\":true,\"wallet_id\":\"\xFF\"}"}) {
        EXPECT_EQ(state_of(m_folder, reply), ReplyState::denied) << reply;
        EXPECT_EQ(bound_wallet_id(), "") << reply;
    }
}

TEST_F(ConnectFiles, AReplyOfManyLevelsIsARefusal)
{
    const std::string deep(10'000, '[');
    EXPECT_EQ(state_of(m_folder, deep), ReplyState::denied);
    EXPECT_EQ(state_of(m_folder, R"({"ok":true,"wallet_id":"7","note":)" + deep + std::string(10'000, ']') + "}"),
              ReplyState::denied);
}

TEST_F(ConnectFiles, AReplyThatCannotBeOpenedIsARefusal)
{
    ASSERT_TRUE(create_folders(m_folder.data() + "/connect/" + kId + ".rep.json"));
    EXPECT_EQ(read_connect_reply(kId), ReplyState::denied);
}
