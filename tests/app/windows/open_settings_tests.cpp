// The settings file in a state that the program cannot use, and what the user reads of it: the real program, its real
// window, and a file that another process really holds.
#include "app/windows/controls.h"
#include "kit/child_process.h"
#include "kit/test_folder.h"
#include "kit/windows/running_program.h"
#include "kit/windows/users_files.h"
#include "platform/text_conversion.h"
#include "settings/settings_store.h"
#include "settings/windows/settings_window_controls.h"
#include "text/json.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

constexpr char kFile[] = "payname/ui.json";
constexpr char kPassword[] = "abcdefghijklmnopqrstuvwx";
const std::wstring kUnreadable = L"The settings cannot be read now, and stay as they are. Press the gear to try again.";
const std::wstring kNotSaved =
    L"The settings are not saved. Close whatever else uses ui.json, then open and close the settings again.";
const std::wstring kLocked =
    L"The saved application password does not open for this Windows user. Press the gear and type it again.";

class KeptSettings : public testing::Test {
protected:
    KeptSettings()
    {
        save({"old.example", "admin", kPassword}, "ann");
        text = folder.read(kFile);
    }

    const TestFolder folder;
    std::string text;
};

// Another process has the file open and lets nobody else in.
class HeldSettings : public KeptSettings {
protected:
    HeldSettings()
        : m_holder(std::make_unique<ChildProcess>(
              std::vector<std::string>{folder.path(), "hold-alone", folder.data() + "/" + kFile}))
    {
        EXPECT_EQ(m_holder->read_line(), "open");
    }
    void let_go() { m_holder.reset(); }

private:
    std::unique_ptr<ChildProcess> m_holder;
};

}  // namespace

TEST_F(KeptSettings, ThatAreGoodLeaveTheStatusLineEmpty)
{
    const RunningProgram program;
    EXPECT_EQ(program.text(kStatusLine), L"");
}

TEST_F(HeldSettings, AreToldOfAndNotWrittenOverAtTheEnd)
{
    const RunningProgram program;
    EXPECT_EQ(program.text(kStatusLine), kUnreadable);
    program.type(L"Bob");
    EXPECT_EQ(program.close(), 0U);
    let_go();
    EXPECT_EQ(folder.read(kFile), text);
}

TEST_F(HeldSettings, AreReadWhenTheGearIsPressedLater)
{
    const RunningProgram program;
    let_go();
    const OpenSettingsWindow settings(program);
    EXPECT_EQ(settings.text(kSiteField), L"old.example");
    EXPECT_EQ(settings.text(kUserField), L"admin");
    EXPECT_EQ(program.text(kStatusLine), L"");
    EXPECT_EQ(program.text(kNameField), L"ann");
    EXPECT_EQ(program.text(kNamePreview), L"ann@old.example");
    settings.press(kShowPasswordButton);
    EXPECT_EQ(settings.text(kPasswordField), L"abcdefghijklmnopqrstuvwx");
    settings.press(kCloseSettingsButton);
    EXPECT_EQ(folder.read(kFile), text);
}

TEST_F(HeldSettings, AreStillToldOfWhenTheGearIsPressedTooEarly)
{
    const RunningProgram program;
    const OpenSettingsWindow settings(program);
    EXPECT_EQ(program.text(kStatusLine), kUnreadable);
    settings.type(kSiteField, L"new.example");
    settings.press(kCloseSettingsButton);
    EXPECT_TRUE(program.shows(kStatusLine, kNotSaved));
    let_go();
    EXPECT_EQ(folder.read(kFile), text);
}

TEST_F(HeldSettings, KeepAtTheEndWhatWasNotTyped)
{
    const RunningProgram program;
    {
        const OpenSettingsWindow settings(program);
        settings.type(kSiteField, L"new.example");
        settings.press(kCloseSettingsButton);
    }
    let_go();
    EXPECT_EQ(program.close(), 0U);
    EXPECT_EQ(saved().site, "new.example");
    EXPECT_EQ(saved().user, "admin");
    EXPECT_EQ(saved().password, kPassword);
    EXPECT_EQ(saved_name(), "ann");
}

TEST_F(HeldSettings, AreShownInAnOpenWindowAsSoonAsAFlowHasReadThem)
{
    const RunningProgram program;
    const OpenSettingsWindow settings(program);
    settings.type(kUserField, L"zoe");
    let_go();
    program.press(kPublishButton);
    EXPECT_EQ(settings.text(kSiteField), L"old.example");
    EXPECT_EQ(settings.text(kUserField), L"zoe");
    EXPECT_TRUE(program.shows(kStatusLine, L"Connect a Vaultry wallet first."));
    settings.press(kCloseSettingsButton);
    EXPECT_EQ(saved().site, "old.example");
    EXPECT_EQ(saved().user, "zoe");
    EXPECT_EQ(saved().password, kPassword);
}

TEST_F(KeptSettings, HeldForAMomentWhenTheyAreSavedAreSavedAllTheSame)
{
    const RunningProgram program;
    program.type(L"Bob");
    ChildProcess holder({folder.path(), "hold-alone", folder.data() + "/" + kFile});
    ASSERT_EQ(holder.read_line(), "open");
    PostMessageW(program.window(), WM_CLOSE, 0, 0);
    EXPECT_EQ(WaitForSingleObject(program.process(), 100), static_cast<DWORD>(WAIT_TIMEOUT));
    holder.close_input();
    EXPECT_EQ(program.exit_code(), 0U);
    EXPECT_TRUE(becomes_true([] { return saved_name() == "Bob"; }));
}

TEST_F(KeptSettings, ThatAreDamagedAreToldOfAndKeptBeside)
{
    folder.write(kFile, "{damaged");
    const RunningProgram program;
    EXPECT_EQ(program.text(kStatusLine),
              L"The settings file is damaged. Press the gear and type the settings again. The old file is kept.");
    const OpenSettingsWindow settings(program);
    settings.type(kSiteField, L"new.example");
    settings.press(kCloseSettingsButton);
    EXPECT_EQ(saved().site, "new.example");
    WIN32_FIND_DATAW found{};
    const std::wstring pattern = widen(folder.data()) + L"/payname/ui.json.damaged-*";
    const HANDLE search = FindFirstFileW(pattern.c_str(), &found);
    ASSERT_NE(search, INVALID_HANDLE_VALUE);
    FindClose(search);
    EXPECT_EQ(folder.read("payname/" + narrow(found.cFileName)), "{damaged");
}

TEST_F(KeptSettings, WithALockedPasswordAreToldOfAndKeepItUntilANewOneIsTyped)
{
    const std::string locked = "AQAAANCMnd8BFdERjHoAwE/Cl+sBAAAA";  // as another Windows user's begins
    nlohmann::json document = parse_json(text);
    document["pass"] = locked;
    folder.write(kFile, document.dump());
    {
        const RunningProgram program;
        EXPECT_EQ(program.text(kStatusLine), kLocked);
        const OpenSettingsWindow settings(program);
        EXPECT_EQ(program.cue_of(settings.control(kPasswordField)), L"From Application Passwords");
        settings.press(kShowPasswordButton);
        EXPECT_EQ(settings.text(kPasswordField), L"");
        settings.press(kCloseSettingsButton);
        EXPECT_EQ(program.close(), 0U);
    }
    EXPECT_EQ(parse_json(folder.read(kFile))["pass"], locked);

    const RunningProgram program;
    const OpenSettingsWindow settings(program);
    settings.type(kPasswordField, L"qqqq wwww");
    settings.press(kCloseSettingsButton);
    EXPECT_EQ(saved().password, "qqqqwwww");
}
