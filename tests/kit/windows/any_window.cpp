#include "kit/windows/any_window.h"

#include "ui/windows/gdi.h"

#include <gtest/gtest.h>

#include <iterator>

namespace {

constexpr DWORD kPatience = 30'000;  // milliseconds; what takes longer has failed

}  // namespace

LRESULT send_to(HWND window, UINT message, WPARAM wparam, LPARAM lparam)
{
    DWORD_PTR answer = 0;
    if (!SendMessageTimeoutW(window, message, wparam, lparam, SMTO_ABORTIFHUNG, kPatience, &answer))
        ADD_FAILURE() << "no answer to message " << message;
    return static_cast<LRESULT>(answer);
}

std::wstring text_of(HWND window)
{
    wchar_t text[1024] = {};
    send_to(window, WM_GETTEXT, std::size(text), reinterpret_cast<LPARAM>(text));
    return text;
}

Rect place_of(HWND control)
{
    RECT place{};
    GetWindowRect(control, &place);
    MapWindowPoints(HWND_DESKTOP, GetAncestor(control, GA_PARENT), reinterpret_cast<POINT*>(&place), 2);
    return from_windows(place);
}

Size client_size_of(HWND window)
{
    RECT client{};
    GetClientRect(window, &client);
    return {client.right, client.bottom};
}

void type_into(HWND field, const wchar_t* text)
{
    send_to(field, EM_SETSEL, 0, -1);
    send_to(field, WM_CLEAR);
    for (const wchar_t* letter = text; *letter != L'\0'; ++letter)
        send_to(field, WM_CHAR, *letter);
}

bool shows_text(HWND window, const std::wstring& text)
{
    return becomes_true([&] { return text_of(window) == text; });
}

COLORREF pixel_of(HWND window, int x, int y)
{
    POINT point{x, y};
    ClientToScreen(window, &point);
    HDC screen = GetDC(nullptr);
    const COLORREF colour = GetPixel(screen, point.x, point.y);
    ReleaseDC(nullptr, screen);
    return colour;
}

bool becomes_true(const std::function<bool()>& condition)
{
    const ULONGLONG end = GetTickCount64() + kPatience;
    while (!condition()) {
        if (GetTickCount64() > end) return false;
        Sleep(5);
    }
    return true;
}

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
