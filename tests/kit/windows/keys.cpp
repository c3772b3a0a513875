#include "kit/windows/keys.h"

#include <gtest/gtest.h>

#include <iterator>

void strike(WORD key, WORD held)
{
    INPUT inputs[4] = {};
    UINT count = 0;
    const auto add = [&](WORD code, DWORD flags) {
        inputs[count].type = INPUT_KEYBOARD;
        inputs[count].ki.wVk = code;
        inputs[count++].ki.dwFlags = flags;
    };
    if (held != 0) add(held, 0);
    add(key, 0);
    add(key, KEYEVENTF_KEYUP);
    if (held != 0) add(held, KEYEVENTF_KEYUP);
    SendInput(count, inputs, sizeof inputs[0]);
}

void click_at(int x, int y)
{
    SetCursorPos(x, y);
    INPUT inputs[2] = {};
    inputs[0].type = inputs[1].type = INPUT_MOUSE;
    inputs[0].mi.dwFlags = MOUSEEVENTF_LEFTDOWN;
    inputs[1].mi.dwFlags = MOUSEEVENTF_LEFTUP;
    SendInput(static_cast<UINT>(std::size(inputs)), inputs, sizeof inputs[0]);
}

void click(HWND control)
{
    RECT place{};
    GetWindowRect(control, &place);
    click_at((place.left + place.right) / 2, (place.top + place.bottom) / 2);
}

void put_mouse_away()
{
    SetCursorPos(GetSystemMetrics(SM_CXSCREEN) - 1, GetSystemMetrics(SM_CYSCREEN) - 1);
}

bool has_focus(const RunningProgram& program, HWND control)
{
    return becomes_true([&] { return program.focus() == control; });
}

void tab_to(const RunningProgram& program, HWND control)
{
    constexpr int kMoreThanControls = 20;
    for (int i = 0; program.focus() != control && i < kMoreThanControls; ++i) {
        const HWND before = program.focus();
        strike(VK_TAB);
        ASSERT_TRUE(becomes_true([&] { return program.focus() != before; }));
    }
    ASSERT_EQ(program.focus(), control);
}
