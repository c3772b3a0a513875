// The window while a flow runs, and what it keeps: the flow is the real one, on a site that never answers.
#include "platform/user_protection.h"
#include "support/test_folder.h"
#include "text/base64.h"
#include "text/json.h"
#include "windows/running_program.h"
#include "windows/stalled_site.h"
#include "windows/wallet_on_disk.h"

#include <gtest/gtest.h>

namespace {

void write_settings(const TestFolder& folder, const std::string& alias)
{
    const std::string pass = base64_encode(protect_for_user(SecretText("abcdefghijkl")).value_or(""));
    folder.write("payname/ui.json",
                 pretty_json({{"alias", alias}, {"pass", pass}, {"site", "https://example.org"}, {"user", "admin"}}));
}

std::string saved_alias(const TestFolder& folder)
{
    return text_member(parse_json(folder.read("payname/ui.json")), "alias");
}

// A connected wallet and complete settings: a flow comes as far as the site.
class RunningFlow : public testing::Test {
protected:
    void SetUp() override
    {
        write_settings(m_folder, "");
        write_wallet(m_folder);
        m_site = std::make_unique<StalledSite>("example.org");
        m_program = std::make_unique<RunningProgram>();
        m_program->type(L"Ann");
        m_program->press(1006);
        ASSERT_TRUE(m_site->is_asked());
    }

    TestFolder m_folder;
    std::unique_ptr<StalledSite> m_site;
    std::unique_ptr<RunningProgram> m_program;
};

}  // namespace

TEST_F(RunningFlow, ThePressedButtonWaitsAndStaysEnabled)
{
    EXPECT_EQ(m_program->text(1006), L"Wait...");
    EXPECT_TRUE(IsWindowEnabled(m_program->control(1006)));
    EXPECT_TRUE(IsWindowEnabled(m_program->control(1018)));
    EXPECT_EQ(saved_alias(m_folder), "Ann");
}

TEST_F(RunningFlow, ASecondPressOnlySaysSo)
{
    m_program->type(L"bob");
    m_program->press(1006);
    EXPECT_EQ(m_program->text(1008), L"Already working.");
    EXPECT_FALSE(m_site->is_asked_again());
    EXPECT_EQ(saved_alias(m_folder), "Ann");
}

TEST_F(RunningFlow, TheWindowKeepsAnswering)
{
    for (int i = 0; i < 20; ++i)
        EXPECT_TRUE(m_program->answers());
    m_program->type(L"zoe");
    EXPECT_EQ(m_program->text(1012), L"zoe@example.org");
}

TEST_F(RunningFlow, ItsEndGivesTheButtonBackAndShowsTheSentence)
{
    m_site->close();
    EXPECT_TRUE(m_program->shows(1008, L"Press Install plugin and upload the zip over the one on the site."));
    EXPECT_EQ(m_program->text(1006), L"Publish");
    EXPECT_TRUE(IsWindowEnabled(m_program->control(1006)));
}

TEST_F(RunningFlow, ClosingMeanwhileSavesTheSettingsAndEndsWithSuccess)
{
    m_program->type(L"Zoe");
    EXPECT_EQ(m_program->close(), 0U);
    EXPECT_EQ(saved_alias(m_folder), "Zoe");
}

TEST(NameField, ShowsItsPreviewWhileTyping)
{
    const TestFolder folder;
    write_settings(folder, "");
    const RunningProgram program;
    EXPECT_EQ(program.text(1012), L"name@your-site");
    program.type(L"Ann");
    EXPECT_EQ(program.text(1012), L"ann@example.org");
    program.type(L"an n");
    EXPECT_EQ(program.text(1012), L"name@your-site");
}

TEST(NameField, StartsWithTheSavedName)
{
    const TestFolder folder;
    write_settings(folder, "bob");
    const RunningProgram program;
    EXPECT_EQ(program.text(1004), L"bob");
    EXPECT_EQ(program.text(1012), L"bob@example.org");
}

TEST(NameField, IsKeptAsTypedWhenTheWindowCloses)
{
    const TestFolder folder;
    const RunningProgram program;
    program.type(L" Zoe ");
    EXPECT_EQ(program.close(), 0U);
    EXPECT_EQ(saved_alias(folder), "Zoe");
}

TEST(Publish, WithoutAWalletSaysSoInTheStatusLine)
{
    const TestFolder folder;
    const RunningProgram program;
    program.press(1006);
    EXPECT_TRUE(program.shows(1008, L"Connect a Vaultry wallet first."));
    EXPECT_TRUE(program.shows(1006, L"Publish"));
}

TEST(WalletCard, ShowsTheConnectedWallet)
{
    const TestFolder folder;
    write_wallet(folder);
    const RunningProgram program;
    EXPECT_EQ(program.text(1010), L"No house paymail yet");
    EXPECT_EQ(program.text(1011).size(), 34U);
    EXPECT_EQ(program.text(1011).front(), L'1');
    EXPECT_EQ(program.text(1013), L"");
}
