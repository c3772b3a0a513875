#include "kit/windows/own_window.h"

#include "app/windows/main_window.h"
#include "kit/windows/running_program.h"

#include <gtest/gtest.h>

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

OwnWindow::OwnWindow(unsigned expected_dpi)
{
    app_state() = AppState();
    app_state().dpi = expected_dpi;
    register_main_window_class(GetModuleHandleW(nullptr));
    m_window = create_main_window(GetModuleHandleW(nullptr));
    EXPECT_NE(m_window, nullptr);
    ShowWindow(m_window, SW_SHOWNORMAL);
    answer_messages();
}

OwnWindow::~OwnWindow()
{
    if (IsWindow(m_window)) destroy();
}

std::wstring OwnWindow::text(int id) const
{
    wchar_t text[1024] = {};
    GetWindowTextW(control(id), text, std::size(text));
    return text;
}

Rect OwnWindow::place(int id) const
{
    RECT place{};
    GetWindowRect(control(id), &place);
    MapWindowPoints(HWND_DESKTOP, m_window, reinterpret_cast<POINT*>(&place), 2);
    return from_windows(place);
}

RECT OwnWindow::rectangle() const
{
    RECT rectangle{};
    GetWindowRect(m_window, &rectangle);
    return rectangle;
}

Size OwnWindow::client() const
{
    RECT client{};
    GetClientRect(m_window, &client);
    return {client.right, client.bottom};
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
