// The settings window: what it is, what it shows, and how the keys move in it.
#include "app/windows/controls.h"
#include "kit/test_folder.h"
#include "kit/windows/any_window.h"
#include "kit/windows/running_program.h"
#include "kit/windows/users_files.h"
#include "settings/windows/settings_window_controls.h"
#include "ui/geometry.h"

#include <gmock/gmock.h>

#include <vector>

namespace {

struct Expected {
    int id = 0;
    const wchar_t* window_class = nullptr;
    const wchar_t* text = nullptr;
    Rect place;
};

constexpr wchar_t kHint[] =
    L"Not the site login. On your profile, Application Passwords, paste the one WordPress shows.";

// In the order of creation.
constexpr Expected kExpected[] = {
    {kSiteCaption, L"Static", L"Site", {20, 16, 400, 18}},
    {kSiteField, L"Edit", L"", {20, 36, 404, 28}},
    {kUserCaption, L"Static", L"WordPress user", {20, 74, 400, 18}},
    {kUserField, L"Edit", L"", {20, 94, 404, 28}},
    {kPasswordCaption, L"Static", L"Application password", {20, 132, 400, 18}},
    {kPasswordField, L"Edit", L"", {20, 152, 364, 32}},
    {kShowPasswordButton, L"Button", L"", {392, 152, 32, 32}},
    {kPasswordHint, L"Static", kHint, {20, 196, 460, 44}},
    {kCloseSettingsButton, L"Button", L"Close", {20, 248, 120, 34}},
};

DWORD style_of(HWND window)
{
    return static_cast<DWORD>(GetWindowLongPtrW(window, GWL_STYLE));
}

// The frame of this system stays that of its one monitor, so the window's size is what can be expected, not the client
// area's.
void expect_size_at(const RunningProgram& program, unsigned dpi, Size client)
{
    RECT window{};
    GetWindowRect(program.window(), &window);
    program.change_dpi(dpi, window);
    const OpenSettingsWindow settings(program);
    RECT frame{0, 0, client.width, client.height};
    AdjustWindowRectExForDpi(&frame, WS_CAPTION | WS_SYSMENU, FALSE, WS_EX_DLGMODALFRAME, dpi);
    GetWindowRect(settings.window(), &window);
    EXPECT_EQ(window.right - window.left, frame.right - frame.left);
    EXPECT_EQ(window.bottom - window.top, frame.bottom - frame.top);
    for (const Expected& expected : kExpected) {
        const Rect& at_96 = expected.place;
        const Rect place{scaled(at_96.x, dpi), scaled(at_96.y, dpi), scaled(at_96.width, dpi),
                         scaled(at_96.height, dpi)};
        EXPECT_EQ(place_of(settings.control(expected.id)), place) << expected.id << " at " << dpi;
    }
    settings.close_by_box();
}

}  // namespace

TEST(SettingsWindow, HasItsTitleStylesSizeOwnerAndPlace)
{
    const TestFolder folder;
    const RunningProgram program;
    const OpenSettingsWindow settings(program);
    EXPECT_EQ(text_of(settings.window()), L"Settings");
    EXPECT_EQ(style_of(settings.window()), WS_CAPTION | WS_SYSMENU | WS_VISIBLE | WS_CLIPSIBLINGS);
    EXPECT_TRUE(GetWindowLongPtrW(settings.window(), GWL_EXSTYLE) & WS_EX_DLGMODALFRAME);
    EXPECT_EQ(client_size_of(settings.window()), (Size{500, 360}));
    EXPECT_EQ(GetWindow(settings.window(), GW_OWNER), program.window());
    EXPECT_EQ(GetClassLongPtrW(settings.window(), GCLP_HBRBACKGROUND), 0U);
    EXPECT_EQ(GetClassLongPtrW(settings.window(), GCL_STYLE), 0U);
    RECT main_window{};
    RECT window{};
    GetWindowRect(program.window(), &main_window);
    GetWindowRect(settings.window(), &window);
    EXPECT_EQ(window.left, main_window.left + 40);
    EXPECT_EQ(window.top, main_window.top + 60);
}

TEST(SettingsWindow, HasExactlyTheControlsOfTheTableInItsOrder)
{
    const TestFolder folder;
    const RunningProgram program;
    const OpenSettingsWindow settings(program);
    std::vector<int> ids;
    for (HWND child = GetWindow(settings.window(), GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT))
        ids.push_back(GetDlgCtrlID(child));
    EXPECT_THAT(ids, testing::ElementsAre(kSiteCaption, kSiteField, kUserCaption, kUserField, kPasswordCaption,
                                          kPasswordField, kShowPasswordButton, kPasswordHint, kCloseSettingsButton));
    for (const Expected& expected : kExpected) {
        wchar_t window_class[32] = {};
        GetClassNameW(settings.control(expected.id), window_class, 32);
        EXPECT_STREQ(window_class, expected.window_class) << expected.id;
        EXPECT_EQ(settings.text(expected.id), expected.text) << expected.id;
        EXPECT_EQ(place_of(settings.control(expected.id)), expected.place) << expected.id;
    }
}

TEST(SettingsWindow, ItsControlsHaveTheirStyles)
{
    const TestFolder folder;
    const RunningProgram program;
    const OpenSettingsWindow settings(program);
    constexpr DWORD kChild = WS_CHILD | WS_VISIBLE;
    for (const int id : {kSiteCaption, kUserCaption, kPasswordCaption})
        EXPECT_EQ(style_of(settings.control(id)), kChild | WS_CLIPSIBLINGS | SS_NOPREFIX | SS_ENDELLIPSIS) << id;
    EXPECT_EQ(style_of(settings.control(kPasswordHint)), kChild | WS_TABSTOP | SS_NOPREFIX | SS_NOTIFY);
    for (const int id : {kCloseSettingsButton, kShowPasswordButton})
        EXPECT_EQ(style_of(settings.control(id)), kChild | WS_CLIPSIBLINGS | WS_TABSTOP | BS_OWNERDRAW) << id;
    constexpr DWORD kField = kChild | WS_TABSTOP | ES_AUTOHSCROLL;
    for (const int id : {kSiteField, kUserField, kPasswordField}) {
        const DWORD secret = id == kPasswordField ? ES_PASSWORD : 0;
        EXPECT_EQ(style_of(settings.control(id)) & (kField | ES_PASSWORD | ES_MULTILINE), kField | secret) << id;
        EXPECT_TRUE(GetWindowLongPtrW(settings.control(id), GWL_EXSTYLE) & WS_EX_CLIENTEDGE) << id;
    }
}

TEST(SettingsWindow, GrowsWithTheDpi)
{
    const TestFolder folder;
    const RunningProgram program;
    expect_size_at(program, 144, {750, 540});
    expect_size_at(program, 192, {1000, 720});
    expect_size_at(program, 96, {500, 360});
}

TEST(SettingsWindow, ShowsWhatIsSavedButNotThePassword)
{
    const TestFolder folder;
    save({"https://m\xC3\xBCller.example/blog", "Zo\xC3\xAB", "abcdefghijkl"});
    const RunningProgram program;
    const OpenSettingsWindow settings(program);
    EXPECT_EQ(settings.text(kSiteField), L"https://m\u00FCller.example/blog");
    EXPECT_EQ(settings.text(kUserField), L"Zo\u00EB");
    EXPECT_EQ(settings.text(kPasswordField), L"");
    EXPECT_EQ(program.cue_of(settings.control(kPasswordField)), L"Saved on this PC");
    EXPECT_TRUE(settings.is_masked());
}

TEST(SettingsWindow, WithoutASavedPasswordSaysWhereOneComesFrom)
{
    const TestFolder folder;
    const RunningProgram program;
    const OpenSettingsWindow settings(program);
    EXPECT_EQ(program.cue_of(settings.control(kPasswordField)), L"From Application Passwords");
}

TEST(SettingsWindow, OpenedAgainOnlyComesForward)
{
    const TestFolder folder;
    const RunningProgram program;
    const OpenSettingsWindow settings(program);
    settings.type(kSiteField, L"typed.example");
    SetForegroundWindow(program.window());
    const OpenSettingsWindow again(program);
    EXPECT_EQ(again.window(), settings.window());
    EXPECT_EQ(FindWindowExW(nullptr, settings.window(), L"CorvaneBrassletSettings", nullptr), nullptr);
    EXPECT_EQ(again.text(kSiteField), L"typed.example");
    EXPECT_TRUE(becomes_true([&] { return GetForegroundWindow() == settings.window(); }));
}

TEST(SettingsWindow, TabMovesThroughTheFieldsAndButtonsAndBack)
{
    const TestFolder folder;
    const RunningProgram program;
    const OpenSettingsWindow settings(program);
    ASSERT_TRUE(program.has_focus(settings.control(kSiteField)));
    for (const int id :
         {kUserField, kPasswordField, kShowPasswordButton, kPasswordHint, kCloseSettingsButton, kSiteField}) {
        strike(VK_TAB);
        ASSERT_TRUE(program.has_focus(settings.control(id))) << id;
    }
    for (const int id :
         {kCloseSettingsButton, kPasswordHint, kShowPasswordButton, kPasswordField, kUserField, kSiteField}) {
        strike(VK_TAB, VK_SHIFT);
        ASSERT_TRUE(program.has_focus(settings.control(id))) << "back to " << id;
    }
}

TEST(SettingsWindow, EnterAndEscapeChangeNothingInAField)
{
    const TestFolder folder;
    save({"old.example", "admin", ""});
    const RunningProgram program;
    const OpenSettingsWindow settings(program);
    ASSERT_TRUE(program.has_focus(settings.control(kSiteField)));
    for (const WORD key : {WORD{VK_RETURN}, WORD{VK_ESCAPE}, WORD{VK_TAB}})
        strike(key);
    ASSERT_TRUE(program.has_focus(settings.control(kUserField)));  // the keys before Tab have been taken
    EXPECT_TRUE(settings.is_open());
    EXPECT_EQ(settings.text(kSiteField), L"old.example");
}

TEST(SettingsWindow, SpacePressesTheButtonThatHasTheFocus)
{
    const TestFolder folder;
    const RunningProgram program;
    const OpenSettingsWindow settings(program);
    ASSERT_TRUE(program.has_focus(settings.control(kSiteField)));
    strike(VK_TAB, VK_SHIFT);
    ASSERT_TRUE(program.has_focus(settings.control(kCloseSettingsButton)));
    strike(VK_SPACE);
    EXPECT_TRUE(becomes_true([&] { return !settings.is_open(); }));
}

TEST(SettingsWindow, TheMainWindowGoesOnWorking)
{
    const TestFolder folder;
    save({"example.org", "", ""});
    const RunningProgram program;
    const OpenSettingsWindow settings(program);
    EXPECT_TRUE(IsWindowEnabled(program.window()));
    program.type(L"Ann");
    EXPECT_EQ(program.text(kNamePreview), L"ann@example.org");
    program.press(kPublishButton);
    EXPECT_TRUE(program.shows(kStatusLine, L"Connect a Vaultry wallet first."));
}
