// The class of the main window, registered by this process: its icons come from the module that it is told of.
#include "app/windows/main_window.h"

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
