// Connect through the real window. The user of the wallet application is the test itself.
#include "app/windows/controls.h"
#include "app/windows/workers.h"
#include "kit/child_process.h"
#include "kit/connect_requests.h"
#include "kit/wallet_files.h"
#include "kit/windows/running_program.h"
#include "kit/windows/users_files.h"
#include "platform/text_conversion.h"
#include "text/json.h"
#include "wallet/wallet_keys.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

constexpr int kButtonsOfWork[] = {kConnectButton, kUnbindButton,  kSettingsButton,
                                  kInstallButton, kPublishButton, kRemoveButton};

constexpr wchar_t kWaits[] = L"Waiting for Vaultry to approve.";

WalletKeys keys_of_shop()
{
    return derive_wallet_keys(SecretText(kPhrase), 5, 0).value();
}

// Connect has been pressed, the request is there, nobody has answered yet.
class Connecting : public testing::Test {
protected:
    void SetUp() override
    {
        write_two_wallets(m_folder);
        m_program = std::make_unique<RunningProgram>();
        m_program->press(kConnectButton);
        ASSERT_TRUE(becomes_true([this] { return connect_request_ids(m_folder).size() == 1; }));
    }

    void reply(const char* text) const { reply_to_connect_request(m_folder, text); }

    void expect_connected_by_approval() const
    {
        reply(R"({"ok":true,"wallet_id":"2"})");
        EXPECT_TRUE(m_program->shows(kStatusLine, L"Connected."));
    }

    void expect_idle() const
    {
        EXPECT_EQ(m_program->text(kConnectButton), L"Connect");
        for (const int id : kButtonsOfWork)
            EXPECT_TRUE(IsWindowEnabled(m_program->control(id))) << id;
    }

    TestFolder m_folder;
    std::unique_ptr<RunningProgram> m_program;
};

}  // namespace

TEST_F(Connecting, TheButtonWaitsAndTheOthersAreDisabled)
{
    EXPECT_EQ(m_program->text(kStatusLine), kWaits);
    EXPECT_EQ(m_program->text(kConnectButton), L"Wait...");
    for (const int id : kButtonsOfWork)
        EXPECT_EQ(IsWindowEnabled(m_program->control(id)) != 0, id == kConnectButton) << id;
    EXPECT_TRUE(IsWindowEnabled(m_program->control(kCloseButton)));
}

TEST_F(Connecting, TheWindowKeepsAnswering)
{
    for (int i = 0; i < 20; ++i)
        EXPECT_TRUE(m_program->answers());
    m_program->type(L"zoe");
    EXPECT_EQ(m_program->text(kNameField), L"zoe");
}

TEST_F(Connecting, ASecondPressOnlySaysSo)
{
    m_program->press(kConnectButton);
    EXPECT_EQ(m_program->text(kStatusLine), L"Already working.");
    EXPECT_EQ(connect_request_ids(m_folder).size(), 1U);
    expect_connected_by_approval();
    EXPECT_EQ(connect_request_ids(m_folder).size(), 1U);
}

TEST_F(Connecting, TheApprovedWalletIsShown)
{
    expect_connected_by_approval();
    EXPECT_EQ(m_program->text(kHousePaymail), L"No house paymail yet");
    EXPECT_EQ(m_program->text(kPaymentAddress), widen(keys_of_shop().address));
    EXPECT_EQ(m_program->text(kKeptNames), L"");
    expect_idle();
    EXPECT_EQ(bind_records(m_folder), 1U);
}

TEST_F(Connecting, ThePublishedNameOfTheApprovedWalletIsFilledIn)
{
    const WalletKeys keys = keys_of_shop();
    m_folder.write(
        "payname/payname.json",
        nlohmann::json{
            {"names", {{{"paymail", "shop@example.org"}, {"pubkey", keys.identity_key}, {"address", keys.address}}}}}
            .dump());
    m_folder.write("payname/ui.json", R"({"alias":"","pass":"","site":"https://example.org","user":""})");
    m_program->type(L"zoe");
    expect_connected_by_approval();
    EXPECT_EQ(m_program->text(kNameField), L"shop");
    EXPECT_EQ(m_program->text(kKeptNames), L"Vaultry kept shop@example.org");
}

TEST_F(Connecting, WithoutAPublishedOrSavedNameTheFieldStaysAsItIs)
{
    m_program->type(L"zoe");
    expect_connected_by_approval();
    EXPECT_EQ(m_program->text(kNameField), L"zoe");
}

TEST_F(Connecting, ARefusalIsToldAndTheCardStays)
{
    reply(R"({"ok":false})");
    EXPECT_TRUE(m_program->shows(kStatusLine, L"error: connect denied in Vaultry."));
    EXPECT_EQ(m_program->text(kPaymentAddress), L"Connect Vaultry");
    expect_idle();
    EXPECT_EQ(bind_records(m_folder), 0U);
}

TEST_F(Connecting, AnApprovedWalletThatIsLockedIsToldAndStaysBound)
{
    m_folder.write("wallets/2/wallet.json.seal", "");
    reply(R"({"ok":true,"wallet_id":"2"})");
    EXPECT_TRUE(m_program->shows(kStatusLine, L"error: This wallet is locked. Open it in Vaultry."));
    EXPECT_EQ(m_program->text(kPaymentAddress), L"Connect Vaultry");
    EXPECT_EQ(bind_records(m_folder), 1U);
}

TEST_F(Connecting, AnApprovedWalletThatIsMissingIsTold)
{
    reply(R"({"ok":true,"wallet_id":"9"})");
    EXPECT_TRUE(m_program->shows(kStatusLine, L"error: approved, but the wallet would not load."));
    expect_idle();
}

TEST_F(Connecting, TheWindowAnswersWhileTheLoadWaitsForTheWalletApplication)
{
    m_folder.write("wallets/2/wallet.json", phrase_wallet({{"paymail", "shop"}}).dump());
    ChildProcess vaultry({m_folder.path(), "hold-lock"});
    ASSERT_EQ(vaultry.read_line(), "held");
    reply(R"({"ok":true,"wallet_id":"2"})");
    ASSERT_TRUE(becomes_true([this] { return bind_records(m_folder) == 1; }));
    for (int i = 0; i < 20; ++i)
        EXPECT_TRUE(m_program->answers());
    EXPECT_EQ(m_program->text(kStatusLine), kWaits);
    vaultry.close_input();
    EXPECT_TRUE(m_program->shows(kStatusLine, L"Connected."));
}

TEST_F(Connecting, ClosingMeanwhileSavesTheSettingsAndEndsWithSuccess)
{
    m_program->type(L"Zoe");
    EXPECT_EQ(m_program->close(), 0U);
    EXPECT_EQ(text_member(parse_json(m_folder.read("payname/ui.json")), "alias"), "Zoe");
}

TEST(Connect, ThatCannotBeAskedForIsTold)
{
    const TestFolder folder;
    folder.write("connect", "a file where the folder should be");
    const RunningProgram program;
    program.press(kConnectButton);
    EXPECT_TRUE(program.shows(kStatusLine, L"error: could not write connect request."));
    EXPECT_EQ(program.text(kConnectButton), L"Connect");
}

TEST(Connect, WhileConnectedAsksNobody)
{
    const TestFolder folder;
    write_one_wallet(folder, phrase_wallet());
    const RunningProgram program;
    program.press(kConnectButton);
    EXPECT_EQ(program.text(kStatusLine), L"Already connected. Unbind to pick another wallet.");
    EXPECT_EQ(program.text(kConnectButton), L"Connect");
    EXPECT_FALSE(folder.has("connect"));
}

TEST(Connect, ForABoundWalletOfASingleKeySucceedsWithoutTheWalletApplication)
{
    const TestFolder folder;
    write_one_wallet(folder, {{"priv", std::string(63, '0') + "1"}});
    const RunningProgram program;
    program.press(kConnectButton);
    EXPECT_TRUE(program.shows(kStatusLine, L"Connected."));
    EXPECT_EQ(program.text(kPaymentAddress), L"Connect Vaultry");
    EXPECT_FALSE(folder.has("connect"));
}

TEST(Connect, AResultThatAnotherProgramPostsIsNone)
{
    const TestFolder folder;
    const RunningProgram program;
    for (const LPARAM number : {LPARAM{0}, LPARAM{1}, LPARAM{-1}, LPARAM{0x10000}})
        ASSERT_TRUE(PostMessageW(program.window(), MsgConnectResult, 0, number));
    EXPECT_TRUE(program.answers());
    EXPECT_EQ(program.text(kStatusLine), L"");
}
