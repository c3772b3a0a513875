// The handshake from the request to the result, with a wallet application that answers between two looks at the reply,
// and a clock that stands still.
#include "kit/connect_requests.h"
#include "kit/stand_in/stand_in.h"
#include "kit/wallet_files.h"
#include "wallet_bridge/binding.h"
#include "wallet_bridge/connect.h"
#include "wallet_bridge/loaded_wallet.h"
#include "wallet_bridge/wallet_events.h"
#include "wallet_bridge/wallet_identity.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using Lines = std::vector<std::string>;
using std::chrono::milliseconds;

const Lines kAsked = {"[QX-VAULTRY]\x1f"
                      "connect-pending\x1f"
                      "Approve the connect in Vaultry.",
                      "Waiting for Vaultry to approve this app...\n"};

Lines after_asking(std::initializer_list<std::string> more)
{
    Lines lines = kAsked;
    lines.insert(lines.end(), more);
    return lines;
}

std::string event(const std::string& rest)
{
    return "[QX-VAULTRY]\x1f" + rest;
}

// A started program that is bound to none of its two wallets, and an observer of all that it tells.
class ConnectHandshake : public testing::Test {
protected:
    ConnectHandshake()
    {
        m_folder.write("wallets.json", R"({"wallets":[{"id":"1","name":"Savings"},{"id":"2","name":"Shop"}]})");
        m_folder.write("wallets/1/wallet.json", phrase_wallet().dump());
        m_folder.write("wallets/2/wallet.json", phrase_wallet({{"recv", {0, 5, 0, 0, 0, 0}}}).dump());
        bind_at_startup("C:\\Tools\\Brasslet", "Brasslet");
        set_event_sink([this](const std::string& line) { hear(line); });
        set_log_sink([this](const std::string& line) { hear(line); });
    }
    ~ConnectHandshake() override
    {
        set_event_sink({});
        set_log_sink({});
    }

    void reply(const std::string& text) const { reply_to_connect_request(m_folder, text); }

    // Vaultry answers during the pause of that number, counted from 1.
    void reply_during_pause(std::size_t number, const std::string& text)
    {
        stand_in().during_pause = [this, number, text] {
            if (stand_in().pauses.size() == number) reply(text);
        };
    }
    std::string connect_with_reply(const std::string& text)
    {
        reply_during_pause(1, text);
        return connect_wallet();
    }

    TestFolder m_folder;
    Lines m_lines;
    std::string m_early_reply;  // when not empty, already there when the program first says that it waits

private:
    void hear(const std::string& line)
    {
        m_lines.push_back(line);
        if (line == kAsked[0] && !m_early_reply.empty()) reply(m_early_reply);
    }
};

}  // namespace

TEST_F(ConnectHandshake, AnApprovedWalletIsBoundAndLoaded)
{
    EXPECT_EQ(connect_with_reply(R"({"ok":true,"wallet_id":"2"})"), "success");
    EXPECT_EQ(bound_wallet_id(), "2");
    ASSERT_TRUE(is_wallet_loaded());
    {
        HeldWallet held = hold_wallet();
        EXPECT_EQ(held->wallet->receive_counters[1], 5U);
    }
    EXPECT_TRUE(wallet_ready());
    EXPECT_EQ(m_lines, after_asking({"Connected to Vaultry wallet Shop\n"}));
    EXPECT_EQ(stand_in().wallet_app_raises, 1);
}

TEST_F(ConnectHandshake, TheIdentityIsRefreshedBeforeTheWalletIsNamed)
{
    m_folder.write("wallets/2/wallet.json", phrase_wallet({{"paymail", "ann"}}).dump());
    EXPECT_EQ(connect_with_reply(R"({"ok":true,"wallet_id":"2"})"), "success");
    EXPECT_EQ(m_lines, after_asking({event("paymail\x1f" + wallet_paymail()), "Connected to Vaultry wallet ann\n"}));
}

TEST_F(ConnectHandshake, AnObserverMayAskForTheWalletAtEveryLine)
{
    m_folder.write("wallets/2/wallet.json", phrase_wallet({{"paymail", "ann"}}).dump());
    int answers = 0;
    const auto ask = [&answers](const std::string&) { answers += wallet_ready() ? 1 : 0; };
    set_log_sink(ask);
    set_event_sink(ask);
    reply_during_pause(1, R"({"ok":true,"wallet_id":"2"})");
    EXPECT_EQ(connect_wallet(), "success");
    EXPECT_EQ(answers, 2);  // the house paymail, and the wallet's name
    EXPECT_EQ(connect_wallet(), "success");
    EXPECT_EQ(answers, 3);
    EXPECT_EQ(disconnect_wallet(), "success");
    EXPECT_EQ(answers, 3);
}

TEST_F(ConnectHandshake, TheFilesOfTheHandshakeStay)
{
    connect_with_reply(R"({"ok":true,"wallet_id":"2"})");
    const auto ids = connect_request_ids(m_folder);
    ASSERT_EQ(ids.size(), 1U);
    EXPECT_TRUE(m_folder.has("connect/" + ids[0] + ".rep.json"));
}

TEST_F(ConnectHandshake, AReplyThatIsThereAlreadyIsSeenAfterOnePause)
{
    m_early_reply = R"({"ok":true,"wallet_id":"2"})";
    EXPECT_EQ(connect_wallet(), "success");
    EXPECT_EQ(stand_in().pauses, std::vector(1, milliseconds(500)));
}

TEST_F(ConnectHandshake, NoAnswerIn120PausesOf500MillisecondsIsTooLate)
{
    const std::string message = "error: Vaultry did not approve in time. Open Vaultry.exe and try Connect again.";
    EXPECT_EQ(connect_wallet(), message);
    EXPECT_EQ(stand_in().pauses, std::vector(120, milliseconds(500)));
    EXPECT_EQ(m_lines, after_asking({event("connect-denied\x1ftimeout"), event("error\x1f" + message)}));
    EXPECT_EQ(bound_wallet_id(), "");
}

TEST_F(ConnectHandshake, AnAnswerDuringTheLastPauseStillCounts)
{
    reply_during_pause(120, R"({"ok":true,"wallet_id":"2"})");
    EXPECT_EQ(connect_wallet(), "success");
    EXPECT_EQ(stand_in().pauses.size(), 120U);
}

TEST_F(ConnectHandshake, ARefusalEndsItAtOnce)
{
    EXPECT_EQ(connect_with_reply(R"({"ok":false,"wallet_id":"2"})"), "error: connect denied in Vaultry.");
    EXPECT_EQ(stand_in().pauses.size(), 1U);
    EXPECT_EQ(m_lines, after_asking({event("connect-denied\x1f"
                                           "denied"),
                                     event("error\x1f"
                                           "error: connect denied in Vaultry.")}));
    EXPECT_EQ(bound_wallet_id(), "");
}

TEST_F(ConnectHandshake, AReplyThatIsNoJsonIsARefusalAndNoBetterOneIsWaitedFor)
{
    EXPECT_EQ(connect_with_reply("{\"ok\":tr"), "error: connect denied in Vaultry.");
    EXPECT_EQ(stand_in().pauses.size(), 1U);
}

TEST_F(ConnectHandshake, AReplyThatCannotBeReadIsARefusal)
{
    stand_in().during_pause = [this] {
        reply(R"({"ok":true,"wallet_id":"2"})");
        stand_in().files.reads_fail = true;
    };
    EXPECT_EQ(connect_wallet(), "error: connect denied in Vaultry.");
}

TEST_F(ConnectHandshake, AnApprovalWithoutAWalletLoadsNone)
{
    const std::string message = "error: approved, but the wallet would not load.";
    EXPECT_EQ(connect_with_reply(R"({"ok":true})"), message);
    EXPECT_EQ(m_lines, after_asking({event("error\x1f" + message)}));
    EXPECT_EQ(bound_wallet_id(), "");
}

TEST_F(ConnectHandshake, AnApprovalWithoutAWalletLoadsTheOneThatWasBoundBefore)
{
    bind_wallet("3");
    stand_in().during_pause = [this] {
        m_folder.write("wallets/3/wallet.json", phrase_wallet().dump());
        reply(R"({"ok":true})");
    };
    EXPECT_EQ(connect_wallet(), "success");
    EXPECT_EQ(bound_wallet_id(), "3");
}

TEST_F(ConnectHandshake, AnApprovedWalletWithASealFileIsLockedAndStaysBound)
{
    m_folder.write("wallets/2/wallet.json.seal", "");
    const std::string message = "error: This wallet is locked. Open it in Vaultry.";
    EXPECT_EQ(connect_with_reply(R"({"ok":true,"wallet_id":"2"})"), message);
    EXPECT_EQ(m_lines, after_asking({event("error\x1f" + message)}));
    EXPECT_EQ(bound_wallet_id(), "2");
    EXPECT_FALSE(is_wallet_loaded());
}

TEST_F(ConnectHandshake, AnApprovedWalletThatIsALockRecordIsLocked)
{
    m_folder.write("wallets/2/wallet.json", R"({"lock":"QX-LOCK1"})");
    EXPECT_EQ(connect_with_reply(R"({"ok":true,"wallet_id":"2"})"),
              "error: This wallet is locked. Open it in Vaultry.");
}

TEST_F(ConnectHandshake, AnApprovedWalletThatIsMissingStaysBound)
{
    EXPECT_EQ(connect_with_reply(R"({"ok":true,"wallet_id":"9"})"), "error: approved, but the wallet would not load.");
    EXPECT_EQ(bound_wallet_id(), "9");
}

TEST_F(ConnectHandshake, AFailedLoadForgetsTheWalletOfBefore)
{
    m_folder.write("corvane_vaultry.json", phrase_wallet().dump());
    ASSERT_TRUE(wallet_address().has_value());
    ASSERT_TRUE(is_wallet_loaded());
    connect_with_reply(R"({"ok":true,"wallet_id":"9"})");
    EXPECT_FALSE(is_wallet_loaded());
}

TEST_F(ConnectHandshake, ARequestThatCannotBeWrittenAsksNobody)
{
    stand_in().files.writes_fail = true;
    const std::string message = "error: could not write connect request.";
    EXPECT_EQ(connect_wallet(), message);
    EXPECT_EQ(m_lines, Lines{event("error\x1f" + message)});
    EXPECT_EQ(stand_in().wallet_app_raises, 0);
    EXPECT_TRUE(stand_in().pauses.empty());
}

TEST_F(ConnectHandshake, ARequestThatTheDiskHasNoRoomForAsksNobody)
{
    stand_in().files.largest_file = 10;
    EXPECT_EQ(connect_wallet(), "error: could not write connect request.");
    EXPECT_EQ(stand_in().wallet_app_raises, 0);
}

TEST_F(ConnectHandshake, WithoutTheWalletApplicationItStillWaits)
{
    stand_in().wallet_app_is_there = false;
    reply_during_pause(7, R"({"ok":true,"wallet_id":"2"})");
    EXPECT_EQ(connect_wallet(), "success");
    EXPECT_EQ(stand_in().pauses.size(), 7U);
}

TEST_F(ConnectHandshake, ABoundWalletThatDoesNotLoadIsAskedForAnew)
{
    bind_wallet("9");
    EXPECT_EQ(connect_with_reply(R"({"ok":true,"wallet_id":"1"})"), "success");
    EXPECT_EQ(bound_wallet_id(), "1");
}

TEST_F(ConnectHandshake, OtherThreadsMayAskForTheWalletWhileItWaits)
{
    bool is_free = false;
    stand_in().during_pause = [this, &is_free] {
        is_free = wallet_state().wallet.is_free();
        reply(R"({"ok":false})");
    };
    EXPECT_TRUE(connect_wallet().starts_with("error: "));
    EXPECT_TRUE(is_free);
}
