// The class of the main window, whose icons come from the module that it is told of; and the scale at which the window
// opens: that of the monitor on which Windows has put it, whatever was expected.
#include "app/windows/main_window.h"

#include "app/windows/controls.h"
#include "kit/windows/drawn_texts.h"
#include "kit/windows/own_window.h"
#include "platform/environment.h"
#include "platform/text_conversion.h"

#include <gtest/gtest.h>

namespace {

WNDCLASSEXW registered_for(HINSTANCE module)
{
    register_main_window_class(module);
    WNDCLASSEXW registered{};
    registered.cbSize = sizeof registered;
    EXPECT_TRUE(GetClassInfoExW(module, L"CorvaneBrassletShell", &registered));
    UnregisterClassW(L"CorvaneBrassletShell", module);
    return registered;
}

LONG width_of(HICON icon)
{
    ICONINFO parts{};
    BITMAP mask{};
    EXPECT_TRUE(GetIconInfo(icon, &parts));
    GetObjectW(parts.hbmMask, sizeof mask, &mask);
    DeleteObject(parts.hbmMask);
    DeleteObject(parts.hbmColor);
    return mask.bmWidth;
}

// The program, opened for its resources only.
HMODULE program_file()
{
    const std::wstring path = widen(executable_folder()) + L"\\..\\src\\Brasslet.exe";
    HMODULE module = LoadLibraryExW(path.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE | LOAD_LIBRARY_AS_IMAGE_RESOURCE);
    EXPECT_NE(module, nullptr);
    return module;
}

// The frame of the test desktop stays that of its one monitor, so the window's size is what can be expected.
Size window_size_for(Size client, unsigned dpi)
{
    RECT window{0, 0, client.width, client.height};
    AdjustWindowRectExForDpi(&window, 0x02CE0000, FALSE, 0, dpi);
    return {window.right - window.left, window.bottom - window.top};
}

Size size_of(const OwnWindow& window)
{
    const RECT rectangle = window.rectangle();
    return {rectangle.right - rectangle.left, rectangle.bottom - rectangle.top};
}

LONG font_height(const OwnWindow& window, int id)
{
    return -description(reinterpret_cast<HFONT>(SendMessageW(window.control(id), WM_GETFONT, 0, 0))).lfHeight;
}

}  // namespace

TEST(WindowClass, HasThePrograms32And16PixelIcons)
{
    HMODULE program = program_file();
    const WNDCLASSEXW registered = registered_for(program);
    EXPECT_EQ(width_of(registered.hIcon), 32);
    EXPECT_EQ(width_of(registered.hIconSm), 16);
    EXPECT_NE(registered.hIcon, LoadIconW(nullptr, IDI_APPLICATION));
    FreeLibrary(program);
}

TEST(WindowClass, WithoutIconsHasTheSystemsForBoth)
{
    const WNDCLASSEXW registered = registered_for(GetModuleHandleW(L"ntdll.dll"));
    EXPECT_EQ(registered.hIcon, LoadIconW(nullptr, IDI_APPLICATION));
    EXPECT_EQ(registered.hIconSm, registered.hIcon);
}

TEST(WindowClass, IsPlain)
{
    const WNDCLASSEXW registered = registered_for(GetModuleHandleW(nullptr));
    EXPECT_EQ(registered.style, 0U);
    EXPECT_EQ(registered.lpfnWndProc, main_window_procedure);
    EXPECT_EQ(registered.cbClsExtra, 0);
    EXPECT_EQ(registered.cbWndExtra, 0);
    EXPECT_EQ(registered.hCursor, LoadCursorW(nullptr, IDC_ARROW));
    EXPECT_EQ(registered.hbrBackground, nullptr);
    EXPECT_EQ(registered.lpszMenuName, nullptr);
}

TEST(OpeningDpi, IsThatOfTheWindowsOwnMonitor)
{
    const TestFolder folder;
    const Monitors monitors(144, 144);
    const OwnWindow window(96);
    EXPECT_EQ(app_state().dpi, 144U);
    EXPECT_EQ(size_of(window), window_size_for({1140, 900}, 144));
    EXPECT_EQ(window.place(kConnectButton), main_layout(window.client().width, 144).connect);
    EXPECT_EQ(window.place(kCloseButton), main_layout(window.client().width, 144).close);
}

TEST(OpeningDpi, IsNoChangeOfDpiForTheFonts)
{
    const TestFolder folder;
    const Monitors monitors(144, 144);
    const OwnWindow window(96);
    EXPECT_EQ(font_height(window, kConnectButton), 24);
    EXPECT_EQ(font_height(window, kStatusLine), 21);
    EXPECT_EQ(font_height(window, kPaymentAddress), 21);
    EXPECT_EQ(font_height(window, kCloseButton), 24);
}

TEST(OpeningDpi, IsSmallerWhereALargerOneWasExpected)
{
    const TestFolder folder;
    const OwnWindow window(192);
    EXPECT_EQ(app_state().dpi, 96U);
    EXPECT_EQ(window.client(), (Size{760, 600}));
    EXPECT_EQ(font_height(window, kConnectButton), 16);
}

TEST(OpeningDpi, IsNeverBelow96)
{
    for (const UINT reported : {72U, 0U}) {
        const TestFolder folder;
        const Monitors monitors(reported, reported);
        const OwnWindow window(192);
        EXPECT_EQ(app_state().dpi, 96U) << reported;
        EXPECT_EQ(window.client(), (Size{760, 600})) << reported;
    }
}
