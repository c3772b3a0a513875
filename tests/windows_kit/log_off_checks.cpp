// Logging off, by the messages that Windows sends: it asks every window and tells it then, and ends the process as it
// stands.
#include "app/windows/controls.h"
#include "kit/test_folder.h"
#include "kit/windows/running_program.h"
#include "kit/windows/users_files.h"
#include "settings/settings_store.h"
#include "settings/windows/settings_window_controls.h"

#include <gtest/gtest.h>

namespace {

class LogOff : public testing::Test {
protected:
    LogOff() { save({"old.example", "admin", "abcdefgh"}, "old"); }

    static void ask(const DrivenWindow& window) { EXPECT_EQ(send_to(window.window(), WM_QUERYENDSESSION), TRUE); }
    static void tell(const DrivenWindow& window, bool ends)
    {
        EXPECT_EQ(send_to(window.window(), WM_ENDSESSION, ends ? TRUE : FALSE, static_cast<LPARAM>(ENDSESSION_LOGOFF)),
                  0);
    }

    const TestFolder folder;
};

}  // namespace

TEST_F(LogOff, KeepsWhatIsTypedInBothWindows)
{
    const RunningProgram program;
    program.type(L"Zoe");
    const OpenSettingsWindow settings(program);
    settings.type(kSiteField, L"new.example");
    settings.type(kUserField, L"owner");
    settings.type(kPasswordField, L"qqqq wwww");
    ask(program);
    ask(settings);
    tell(program, true);
    TerminateProcess(program.process(), 1);
    program.exit_code();
    EXPECT_EQ(saved_name(), "Zoe");
    EXPECT_EQ(saved().site, "new.example");
    EXPECT_EQ(saved().user, "owner");
    EXPECT_EQ(saved().password, "qqqqwwww");
    EXPECT_EQ(folder.read("payname/ui.json").find("qqqqwwww"), std::string::npos);

    const RunningProgram next;
    EXPECT_EQ(next.text(kNameField), L"Zoe");
    const OpenSettingsWindow next_settings(next);
    EXPECT_EQ(next_settings.text(kSiteField), L"new.example");
}

TEST_F(LogOff, ThatIsCalledOffWritesNothingAndTheProgramStays)
{
    const RunningProgram program;
    const std::string before = folder.read("payname/ui.json");
    program.type(L"Zoe");
    ask(program);
    tell(program, false);
    EXPECT_EQ(folder.read("payname/ui.json"), before);
    EXPECT_TRUE(program.answers());
    EXPECT_EQ(program.text(kNameField), L"Zoe");
    EXPECT_EQ(program.close(), 0U);
    EXPECT_EQ(saved_name(), "Zoe");
}
