// The real window: its controls, where they stand at every DPI, and what it says before anything was done.
#include "app/layout.h"
#include "app/windows/controls.h"
#include "kit/test_folder.h"
#include "kit/windows/running_program.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

struct Expected {
    int id;
    const wchar_t* window_class;
    const wchar_t* text;
    Rect MainLayout::*place;
};

constexpr wchar_t kStatic[] = L"Static";
constexpr wchar_t kButton[] = L"Button";
constexpr wchar_t kEdit[] = L"Edit";

// In the order of creation.
constexpr Expected kExpected[] = {
    {kConnectButton, kButton, L"Connect", &MainLayout::connect},
    {kUnbindButton, kButton, L"Unbind", &MainLayout::unbind},
    {kSettingsButton, kButton, L"", &MainLayout::settings},
    {kHousePaymailCaption, kStatic, L"House paymail", &MainLayout::house_paymail_caption},
    {kHousePaymail, kStatic, L"Connect Vaultry", &MainLayout::house_paymail},
    {kPaymentAddressCaption, kStatic, L"Payment address", &MainLayout::payment_address_caption},
    {kPaymentAddress, kStatic, L"Connect Vaultry", &MainLayout::payment_address},
    {kNameCaption, kStatic, L"Name", &MainLayout::name_caption},
    {kNameField, kEdit, L"", &MainLayout::name_field},
    {kNamePreview, kStatic, L"name@your-site", &MainLayout::name_preview},
    {kNameHint, kStatic, L"Pays this house paymail. Other names stay.", &MainLayout::name_hint},
    {kKeptNames, kStatic, L"", &MainLayout::kept_names},
    {kInstallButton, kButton, L"Install plugin", &MainLayout::install},
    {kPublishButton, kButton, L"Publish", &MainLayout::publish},
    {kRemoveButton, kButton, L"Remove", &MainLayout::remove},
    {kCloseButton, kButton, L"Close", &MainLayout::close},
    {kStatusLine, kStatic, L"", &MainLayout::status},
    {kVersionLabel, kStatic, L"Version 0.001", &MainLayout::version},
};

constexpr DWORD kWindowStyle = 0x02CE0000;

void expect_layout(const RunningProgram& program, unsigned dpi)
{
    const MainLayout layout = main_layout(program.client().width, dpi);
    for (const Expected& expected : kExpected)
        EXPECT_EQ(program.place(expected.id), layout.*expected.place) << expected.id << " at " << dpi;
}

RECT window_for(Size client, unsigned dpi)
{
    RECT window{0, 0, client.width, client.height};
    AdjustWindowRectExForDpi(&window, kWindowStyle, FALSE, 0, dpi);
    OffsetRect(&window, -window.left, -window.top);
    return window;
}

DWORD style(const RunningProgram& program, int id)
{
    return static_cast<DWORD>(GetWindowLongPtrW(program.control(id), GWL_STYLE));
}

Size smallest_size(const RunningProgram& program)
{
    MINMAXINFO limits{};
    SendMessageW(program.window(), WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&limits));
    return {limits.ptMinTrackSize.x, limits.ptMinTrackSize.y};
}

}  // namespace

TEST(MainWindow, HasItsTitleStyleAndClientSize)
{
    const TestFolder folder;
    const RunningProgram program;
    wchar_t title[32] = {};
    GetWindowTextW(program.window(), title, 32);
    EXPECT_STREQ(title, L"Brasslet");
    const auto window_style = static_cast<DWORD>(GetWindowLongPtrW(program.window(), GWL_STYLE));
    EXPECT_EQ(window_style, kWindowStyle | WS_VISIBLE | WS_CLIPSIBLINGS);
    EXPECT_EQ(program.client(), (Size{760, 600}));
    EXPECT_EQ(GetClassLongPtrW(program.window(), GCLP_HBRBACKGROUND), 0U);
    EXPECT_EQ(GetClassLongPtrW(program.window(), GCL_STYLE), 0U);
}

TEST(MainWindow, HasExactlyTheControlsOfTheTableInItsOrder)
{
    const TestFolder folder;
    const RunningProgram program;
    std::vector<int> ids;
    for (HWND child = GetWindow(program.window(), GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT))
        ids.push_back(GetDlgCtrlID(child));
    std::vector<int> expected_ids;
    for (const Expected& expected : kExpected) {
        expected_ids.push_back(expected.id);
        wchar_t window_class[32] = {};
        GetClassNameW(program.control(expected.id), window_class, 32);
        EXPECT_STREQ(window_class, expected.window_class) << expected.id;
        EXPECT_EQ(program.text(expected.id), expected.text) << expected.id;
    }
    EXPECT_EQ(ids, expected_ids);
}

TEST(MainWindow, ItsControlsHaveTheirStyles)
{
    const TestFolder folder;
    const RunningProgram program;
    constexpr DWORD kLabel = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | SS_NOPREFIX;
    for (const int id : {kHousePaymailCaption, kHousePaymail, kPaymentAddressCaption, kPaymentAddress, kNameCaption,
                         kNamePreview, kNameHint, kKeptNames})
        EXPECT_EQ(style(program, id), kLabel | SS_ENDELLIPSIS) << id;
    EXPECT_EQ(style(program, kStatusLine), kLabel);
    EXPECT_EQ(style(program, kVersionLabel), kLabel | SS_ENDELLIPSIS | SS_NOTIFY);
    for (const int id :
         {kConnectButton, kUnbindButton, kSettingsButton, kInstallButton, kPublishButton, kRemoveButton, kCloseButton})
        EXPECT_EQ(style(program, id), WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | WS_TABSTOP | BS_OWNERDRAW) << id;
    constexpr DWORD kField = WS_TABSTOP | ES_AUTOHSCROLL;
    EXPECT_EQ(style(program, kNameField) & (kField | ES_MULTILINE), kField);
    EXPECT_TRUE(GetWindowLongPtrW(program.control(kNameField), GWL_EXSTYLE) & WS_EX_CLIENTEDGE);
}

TEST(MainWindow, StandsWhereTheLayoutSays)
{
    const TestFolder folder;
    const RunningProgram program;
    expect_layout(program, 96);
}

TEST(MainWindow, FollowsAChangeOfDpi)
{
    const TestFolder folder;
    const RunningProgram program;
    for (const unsigned dpi : {144U, 192U, 96U}) {
        const RECT suggested = window_for(start_client_size(dpi), dpi);
        program.change_dpi(dpi, suggested);
        RECT window{};
        GetWindowRect(program.window(), &window);
        EXPECT_TRUE(EqualRect(&window, &suggested)) << dpi;
        expect_layout(program, dpi);
    }
}

TEST(MainWindow, IsLaidOutAnewWhenItsSizeChanges)
{
    const TestFolder folder;
    const RunningProgram program;
    SetWindowPos(program.window(), nullptr, 0, 0, 1000, 700, SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_GT(program.client().width, 900);
    expect_layout(program, 96);
}

TEST(MainWindow, MinimisingDoesNotLayOutAndRestoringDoes)
{
    const TestFolder folder;
    const RunningProgram program;
    const Rect laid_out = program.place(kCloseButton);
    const Rect moved{1, 2, 30, 40};
    MoveWindow(program.control(kCloseButton), moved.x, moved.y, moved.width, moved.height, FALSE);
    ShowWindow(program.window(), SW_MINIMIZE);
    ASSERT_TRUE(becomes_true([&] { return IsIconic(program.window()) != 0; }));
    EXPECT_TRUE(program.answers());
    EXPECT_EQ(program.place(kCloseButton).width, moved.width);
    ShowWindow(program.window(), SW_RESTORE);
    EXPECT_TRUE(becomes_true([&] { return program.place(kCloseButton) == laid_out; }));
}

TEST(MainWindow, HasASmallestSizeThatFollowsTheDpi)
{
    const TestFolder folder;
    const RunningProgram program;
    EXPECT_EQ(smallest_size(program), (Size{680, 600}));
    program.change_dpi(192, window_for(start_client_size(192), 192));
    EXPECT_EQ(smallest_size(program), (Size{1360, 1200}));
}

TEST(MainWindow, ItsCloseButtonEndsTheProgramWithSuccess)
{
    const TestFolder folder;
    const RunningProgram program;
    PostMessageW(program.control(kCloseButton), BM_CLICK, 0, 0);
    EXPECT_EQ(program.exit_code(), 0U);
}

TEST(MainWindow, EnterInTheNameFieldChangesNothing)
{
    const TestFolder folder;
    const RunningProgram program;
    program.type(L"ann\r");
    EXPECT_EQ(program.text(kNameField), L"ann");
    EXPECT_EQ(program.text(kStatusLine), L"");
    EXPECT_TRUE(program.answers());
}
