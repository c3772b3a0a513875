#include "kit/windows/monitors.h"

#include "app/windows/main_window.h"

#include <string>

// NOLINTNEXTLINE(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)
extern "C" decltype(&GetDpiForWindow) __imp_GetDpiForWindow;

namespace {

UINT dpi_of_main_window = 0;
UINT dpi_of_others = 0;

UINT WINAPI answer_dpi(HWND window)
{
    wchar_t name[64] = {};
    GetClassNameW(window, name, std::size(name));
    return std::wstring(name) == kMainWindowClass ? dpi_of_main_window : dpi_of_others;
}

}  // namespace

Monitors::Monitors(UINT main_dpi, UINT other_dpi) : m_answer(__imp_GetDpiForWindow, answer_dpi)
{
    dpi_of_main_window = main_dpi;
    dpi_of_others = other_dpi;
}
