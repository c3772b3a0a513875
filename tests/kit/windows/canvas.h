// A bitmap to paint on and a button to paint, both of this process.
#pragma once

#include "ui/windows/drawn_button.h"

inline constexpr int kWidth = 100;
inline constexpr int kHeight = 40;

class Canvas {
public:
    Canvas()
    {
        HDC screen = GetDC(nullptr);
        m_dc = CreateCompatibleDC(screen);
        m_bitmap = CreateCompatibleBitmap(screen, kWidth, kHeight);
        ReleaseDC(nullptr, screen);
        m_before = SelectObject(m_dc, m_bitmap);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
    ~Canvas()
    {
        SelectObject(m_dc, m_before);
        DeleteObject(m_bitmap);
        DeleteDC(m_dc);
    }

    HDC dc() const { return m_dc; }
    COLORREF at(int x, int y) const { return GetPixel(m_dc, x, y); }

private:
    HDC m_dc = nullptr;
    HBITMAP m_bitmap = nullptr;
    HGDIOBJ m_before = nullptr;
};

// A parent of 200 rows and a button without a label in it.
struct Button {
    Button()
    {
        parent = CreateWindowExW(0, L"STATIC", nullptr, WS_POPUP, 0, 0, 300, 200, nullptr, nullptr, nullptr, nullptr);
        window = create_drawn_button(parent, 1006, L"", {0, 0, 10, 10});
        MoveWindow(window, 20, 60, kWidth, kHeight, FALSE);
    }
    Button(const Button&) = delete;
    Button& operator=(const Button&) = delete;
    ~Button() { DestroyWindow(parent); }

    void paint(HDC dc, UINT state, Picture picture = Picture::none) const
    {
        DRAWITEMSTRUCT item{};
        item.CtlType = ODT_BUTTON;
        item.itemState = state;
        item.hwndItem = window;
        item.hDC = dc;
        item.rcItem = {0, 0, kWidth, kHeight};
        paint_drawn_button(item, {96, nullptr, picture});
    }

    HWND parent = nullptr;
    HWND window = nullptr;
};
