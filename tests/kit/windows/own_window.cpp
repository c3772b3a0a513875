#include "kit/windows/own_window.h"

#include "app/windows/main_window.h"

#include <gtest/gtest.h>

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

void answer_messages()
{
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

bool comes_true(const std::function<bool()>& condition)
{
    return becomes_true([&] {
        answer_messages();
        return condition();
    });
}

OwnWindow::OwnWindow(unsigned expected_dpi, const std::function<CardTexts()>& first_texts)
{
    app_state() = AppState();
    app_state().dpi = expected_dpi;
    register_main_window_class(GetModuleHandleW(nullptr));
    m_window = create_main_window(GetModuleHandleW(nullptr), first_texts);
    EXPECT_NE(m_window, nullptr);
    ShowWindow(m_window, SW_SHOWNORMAL);
    EXPECT_TRUE(comes_true([] { return app_state().tips != nullptr; })) << "the window is not done";
}

OwnWindow::~OwnWindow()
{
    if (IsWindow(m_window)) destroy();
}

RECT OwnWindow::rectangle() const
{
    RECT rectangle{};
    GetWindowRect(m_window, &rectangle);
    return rectangle;
}

void OwnWindow::change_dpi(unsigned dpi, RECT suggested) const
{
    SendMessageW(m_window, WM_DPICHANGED, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(&suggested));
    answer_messages();
}

void OwnWindow::destroy()
{
    DestroyWindow(m_window);
    MSG quit{};
    EXPECT_TRUE(PeekMessageW(&quit, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(quit.wParam, 0U);
}

Monitors::Monitors(UINT main_dpi, UINT other_dpi) : m_answer(__imp_GetDpiForWindow, answer_dpi)
{
    dpi_of_main_window = main_dpi;
    dpi_of_others = other_dpi;
}
