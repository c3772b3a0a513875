// Connecting and letting go as far as the wallet application has no part in it.
#include "wallet_bridge/connect.h"

#include "kit/wallet_files.h"
#include "platform/files.h"
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
    const std::string registry = folder.read("wallets.json");
    const std::string wallet = folder.read("wallets/1/wallet.json");
    ASSERT_TRUE(wallet_ready());
    ASSERT_NE(loaded_wallet(), nullptr);
    ASSERT_TRUE(folder.has(kRecord));
    const Observer observer;

    EXPECT_EQ(disconnect_wallet(), "success");
    EXPECT_EQ(loaded_wallet(), nullptr);
    EXPECT_EQ(bound_wallet_id(), "");
    EXPECT_FALSE(folder.has(kRecord));
    EXPECT_FALSE(wallet_ready());
    EXPECT_EQ(observer.lines(), kNotice);
    EXPECT_EQ(folder.read("wallets.json"), registry);
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
    ASSERT_NE(loaded_wallet(), nullptr);
    EXPECT_EQ(disconnect_wallet(), "success");
    EXPECT_EQ(loaded_wallet(), nullptr);
    EXPECT_FALSE(wallet_binding().is_initialised);
}

TEST(Disconnect, TheNextStartBindsTheOnlyWalletAgain)
{
    const TestFolder folder;
    bind_to_wallet(folder, phrase_wallet());
    disconnect_wallet();
    bind_at_startup("C:\\Tools\\Brasslet", "Brasslet");
    EXPECT_EQ(bound_wallet_id(), "1");
    EXPECT_TRUE(wallet_ready());
}
