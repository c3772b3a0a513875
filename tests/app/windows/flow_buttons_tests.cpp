// The window while a flow runs, and what it keeps: the flow is the real one, on a site that never answers. And how the
// plugin package is shown: what the shell is given is noted, nothing is started.
#include "app/windows/busy_guard.h"

#include "app/windows/controls.h"
#include "kit/child_process.h"
#include "kit/test_folder.h"
#include "kit/windows/handed_to_shell.h"
#include "kit/windows/running_program.h"
#include "kit/windows/stalled_site.h"
#include "kit/windows/users_files.h"
#include "platform/text_conversion.h"
#include "platform/user_protection.h"
#include "platform/windows/shell.h"
#include "text/ascii.h"
#include "text/json.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

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

// A flow's button, its label, and what the flow says of a site that does not answer.
struct FlowButton {
    int id;
    const wchar_t* label;
    const wchar_t* sentence;
};

constexpr int kWorkButtons[] = {kConnectButton, kUnbindButton,  kSettingsButton,
                                kInstallButton, kPublishButton, kRemoveButton};
constexpr wchar_t kInstallFirst[] = L"Press Install plugin and upload the zip over the one on the site.";
constexpr FlowButton kFlows[] = {
    {kInstallButton, L"Install plugin",
     L"Brasslet.zip is selected in the folder that opened. Upload it, activate it, then press Install plugin again."},
    {kPublishButton, L"Publish", kInstallFirst},
    {kRemoveButton, L"Remove", kInstallFirst},
};

// The folder that Install plugin opens would lie over the windows of the tests that follow.
void close_folder_of_the_zip()
{
    const auto folder = [] { return FindWindowW(nullptr, L"payname"); };
    EXPECT_TRUE(becomes_true([&] { return folder() != nullptr; }));
    PostMessageW(folder(), WM_CLOSE, 0, 0);
    EXPECT_TRUE(becomes_true([&] { return folder() == nullptr; }));
}

// A connected wallet and complete settings: a flow comes as far as the site.
class RunningFlow : public testing::TestWithParam<FlowButton> {
protected:
    void SetUp() override
    {
        write_settings(m_folder, "");
        write_wallet(m_folder);
        m_site = std::make_unique<StalledSite>("example.org");
        m_program = std::make_unique<RunningProgram>();
        m_program->type(L"Ann");
        m_program->press(GetParam().id);
        ASSERT_TRUE(m_site->is_asked());
    }
    std::vector<int> enabled_buttons() const
    {
        std::vector<int> ids;
        for (const int id : kWorkButtons)
            if (IsWindowEnabled(m_program->control(id)) != FALSE) ids.push_back(id);
        return ids;
    }

    TestFolder m_folder;
    std::unique_ptr<StalledSite> m_site;
    std::unique_ptr<RunningProgram> m_program;
};

std::vector<ShellStart> starts_for(const char* site)
{
    const ComApartment apartment;
    const ShellStarts starts;
    show_plugin_upload(site, nullptr);
    return starts.noted();
}

// That Explorer selects the zip; the shell is asked so where it does not show a file by itself, as none that is
// missing.
void expect_zip_selected(const ShellStart& start, const TestFolder& folder)
{
    std::wstring zip = widen(folder.data() + "/payname/brasslet.zip");
    std::ranges::replace(zip, L'/', L'\\');
    EXPECT_EQ(start.second, L"/select,\"" + zip + L"\"");
}

}  // namespace

TEST_P(RunningFlow, OnlyThePressedButtonStaysEnabledAndWaits)
{
    EXPECT_EQ(m_program->text(GetParam().id), L"Wait...");
    EXPECT_THAT(enabled_buttons(), testing::ElementsAre(GetParam().id));
    EXPECT_TRUE(IsWindowEnabled(m_program->control(kCloseButton)));
    EXPECT_EQ(saved_alias(m_folder), "Ann");
}

TEST_P(RunningFlow, ASecondPressOnlySaysSo)
{
    m_program->type(L"bob");
    m_program->press(GetParam().id);
    EXPECT_EQ(m_program->text(kStatusLine), L"Already working.");
    EXPECT_FALSE(m_site->is_asked_again());
    EXPECT_EQ(saved_alias(m_folder), "Ann");
}

TEST_P(RunningFlow, TheWindowKeepsAnswering)
{
    for (int i = 0; i < 20; ++i)
        EXPECT_TRUE(m_program->answers());
    m_program->type(L"zoe");
    EXPECT_EQ(m_program->text(kNamePreview), L"zoe@example.org");
}

TEST_P(RunningFlow, ItsEndGivesTheButtonsBackAndShowsTheSentence)
{
    m_site->close();
    EXPECT_TRUE(m_program->shows(kStatusLine, GetParam().sentence));
    EXPECT_EQ(m_program->text(GetParam().id), GetParam().label);
    EXPECT_THAT(enabled_buttons(), testing::ElementsAreArray(kWorkButtons));
    if (GetParam().id == kInstallButton) close_folder_of_the_zip();
}

TEST_P(RunningFlow, ClosingMeanwhileSavesTheSettingsAndEndsWithSuccess)
{
    m_program->type(L"Zoe");
    EXPECT_EQ(m_program->close(), 0U);
    EXPECT_EQ(saved_alias(m_folder), "Zoe");
}

INSTANTIATE_TEST_SUITE_P(Buttons, RunningFlow, testing::ValuesIn(kFlows),
                         [](const auto& flow) { return std::to_string(flow.param.id); });

TEST(Install, AZipThatIsOpenElsewhereStaysAsItIs)
{
    const TestFolder folder;
    write_settings(folder, "");
    folder.write("payname/brasslet.zip", "the old zip");
    ChildProcess other({folder.path(), "hold-open", folder.data() + "/payname/brasslet.zip"});
    ASSERT_EQ(other.read_line(), "open");
    StalledSite site("example.org");
    const RunningProgram program;
    program.press(kInstallButton);
    ASSERT_TRUE(site.is_asked());
    site.close();
    EXPECT_TRUE(program.shows(kStatusLine, L"Could not write the plugin."));
    other.close_input();
    EXPECT_EQ(folder.read("payname/brasslet.zip"), "the old zip");
    EXPECT_FALSE(folder.has("payname/brasslet.zip.tmp"));
}

TEST(NameField, ShowsItsPreviewWhileTyping)
{
    const TestFolder folder;
    write_settings(folder, "");
    const RunningProgram program;
    EXPECT_EQ(program.text(kNamePreview), L"name@your-site");
    program.type(L"Ann");
    EXPECT_EQ(program.text(kNamePreview), L"ann@example.org");
    program.type(L"an n");
    EXPECT_EQ(program.text(kNamePreview), L"name@your-site");
}

TEST(NameField, StartsWithTheSavedName)
{
    const TestFolder folder;
    write_settings(folder, "bob");
    const RunningProgram program;
    EXPECT_EQ(program.text(kNameField), L"bob");
    EXPECT_EQ(program.text(kNamePreview), L"bob@example.org");
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
    program.press(kPublishButton);
    EXPECT_TRUE(program.shows(kStatusLine, L"Connect a Vaultry wallet first."));
    EXPECT_TRUE(program.shows(kPublishButton, L"Publish"));
}

TEST(WalletCard, ShowsTheConnectedWallet)
{
    const TestFolder folder;
    write_wallet(folder);
    const RunningProgram program;
    EXPECT_EQ(program.text(kHousePaymail), L"No house paymail yet");
    EXPECT_EQ(program.text(kPaymentAddress).size(), 34U);
    EXPECT_EQ(program.text(kPaymentAddress).front(), L'1');
    EXPECT_EQ(program.text(kKeptNames), L"");
}

TEST(ShowingThePackage, SelectsTheZipAndOpensTheUploadPage)
{
    const TestFolder folder;
    const auto starts = starts_for(" Brasslet.TEST/blog/ ");
    ASSERT_EQ(starts.size(), 2U);
    expect_zip_selected(starts[0], folder);
    EXPECT_EQ(starts[1], ShellStart(L"https://brasslet.test/blog/wp-admin/plugin-install.php?tab=upload", L""));
}

TEST(ShowingThePackage, OpensNoPageForAnAddressThatCannotBeUsed)
{
    const TestFolder folder;
    for (const char* site : {"", "http://brasslet.test", "https://brasslet.test:8443"}) {
        const auto starts = starts_for(site);
        ASSERT_EQ(starts.size(), 1U) << site;
        expect_zip_selected(starts[0], folder);
    }
}
