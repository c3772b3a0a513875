// Logging off and shutting Windows down, as the system tells of them. After that it ends the process as it stands: so
// does the test, and what was not saved by then is lost.
#include "app/windows/workers.h"
#include "kit/test_folder.h"
#include "kit/windows/running_program.h"
#include "kit/windows/users_files.h"
#include "settings/settings_store.h"
#include "settings/windows/settings_window_controls.h"

#include <gtest/gtest.h>

namespace {

class SessionEnd : public testing::Test {
protected:
    SessionEnd() { save({"old.example", "admin", "abcdefgh"}, "old"); }

    // The system asks every window first, and tells it then what came of the asking.
    static void end_session(const RunningProgram& program)
    {
        EXPECT_EQ(send_to(program.window(), WM_QUERYENDSESSION), TRUE);
        EXPECT_EQ(send_to(program.window(), WM_ENDSESSION, TRUE), 0);
        TerminateProcess(program.process(), 1);
    }

    const TestFolder folder;
};

}  // namespace

TEST_F(SessionEnd, SavesTheNameInTheField)
{
    const RunningProgram program;
    program.type(L"Zoe");
    end_session(program);
    EXPECT_EQ(saved_name(), "Zoe");
    EXPECT_EQ(saved().site, "old.example");
    EXPECT_EQ(saved().user, "admin");
    EXPECT_EQ(saved().password, "abcdefgh");
}

TEST_F(SessionEnd, TakesTheFieldsOfAnOpenSettingsWindow)
{
    const RunningProgram program;
    const OpenSettingsWindow settings(program);
    settings.type(kSiteField, L"  New.example \t");
    settings.type(kUserField, L" Zo\u00EB ");
    settings.type(kPasswordField, L"qqqq wwww");
    EXPECT_EQ(send_to(settings.window(), WM_QUERYENDSESSION), TRUE);
    end_session(program);
    EXPECT_EQ(saved().site, "New.example");
    EXPECT_EQ(saved().user, "Zo\xC3\xAB");
    EXPECT_EQ(saved().password, "qqqqwwww");
}

TEST_F(SessionEnd, KeepsThePasswordWhoseFieldIsEmpty)
{
    const RunningProgram program;
    const OpenSettingsWindow settings(program);
    settings.type(kSiteField, L"new.example");
    end_session(program);
    EXPECT_EQ(saved().site, "new.example");
    EXPECT_EQ(saved().password, "abcdefgh");
}

TEST_F(SessionEnd, ThatIsCalledOffChangesNothing)
{
    const RunningProgram program;
    const OpenSettingsWindow settings(program);
    const std::string before = folder.read("payname/ui.json");
    settings.type(kSiteField, L"new.example");
    program.type(L"Zoe");
    EXPECT_EQ(send_to(program.window(), WM_QUERYENDSESSION), TRUE);
    EXPECT_EQ(send_to(program.window(), WM_ENDSESSION, FALSE), 0);
    EXPECT_EQ(folder.read("payname/ui.json"), before);
    EXPECT_TRUE(settings.is_open());
    EXPECT_EQ(settings.text(kSiteField), L"new.example");
    // Nothing was taken either: the window goes, and its fields with it.
    EXPECT_EQ(program.close(), 0U);
    EXPECT_EQ(saved().site, "old.example");
    EXPECT_EQ(saved_name(), "Zoe");
}

TEST_F(SessionEnd, SavesBehindTheQuestionToo)
{
    const RunningProgram program;
    program.type(L"Zoe");
    PostMessageW(program.window(), MsgUpdateResult, 3, 0);
    ASSERT_TRUE(becomes_true([&] { return IsWindowEnabled(program.window()) == FALSE; }));
    end_session(program);
    EXPECT_EQ(saved_name(), "Zoe");
}

TEST_F(SessionEnd, ThatTheProgramOutlivesIsFollowedByAnOrdinaryEnd)
{
    const RunningProgram program;
    const OpenSettingsWindow settings(program);
    settings.type(kSiteField, L"new.example");
    send_to(program.window(), WM_ENDSESSION, TRUE);
    program.type(L"Zoe");
    EXPECT_EQ(program.close(), 0U);
    EXPECT_EQ(saved().site, "new.example");
    EXPECT_EQ(saved_name(), "Zoe");
}
