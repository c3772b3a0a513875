// Owners for drawing: every GDI object is deleted by its owner, and what is selected into a device context is selected
// out again before its owner dies.
#pragma once

#include "ui/geometry.h"
#include "ui/palette.h"

#include <windows.h>

#include <utility>

template <typename Handle>
class GdiObject {
public:
    GdiObject() = default;
    explicit GdiObject(Handle handle) : m_handle(handle) {}
    GdiObject(GdiObject&& other) noexcept : m_handle(std::exchange(other.m_handle, nullptr)) {}
    GdiObject& operator=(GdiObject&& other) noexcept
    {
        std::swap(m_handle, other.m_handle);
        return *this;
    }
    ~GdiObject()
    {
        if (m_handle != nullptr) DeleteObject(m_handle);
    }

    Handle get() const { return m_handle; }
    explicit operator bool() const { return m_handle != nullptr; }

private:
    Handle m_handle = nullptr;
};

using Font = GdiObject<HFONT>;
using Brush = GdiObject<HBRUSH>;
using Pen = GdiObject<HPEN>;
using Region = GdiObject<HRGN>;

inline COLORREF colorref(Colour colour)
{
    return RGB(colour.red, colour.green, colour.blue);
}

inline RECT to_windows(const Rect& rect)
{
    return {rect.x, rect.y, rect.right(), rect.bottom()};
}

inline Rect from_windows(const RECT& rect)
{
    return {rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top};
}

inline Brush solid_brush(Colour colour)
{
    return Brush(CreateSolidBrush(colorref(colour)));
}

inline Pen thin_pen(Colour colour)
{
    return Pen(CreatePen(PS_SOLID, 1, colorref(colour)));
}

// Holds `object` selected for as long as it lives. A null object selects nothing.
class Selected {
public:
    Selected(HDC dc, HGDIOBJ object) : m_dc(dc), m_before(object == nullptr ? nullptr : SelectObject(dc, object)) {}
    Selected(const Selected&) = delete;
    Selected& operator=(const Selected&) = delete;
    ~Selected()
    {
        if (m_before != nullptr) SelectObject(m_dc, m_before);
    }

private:
    HDC m_dc;
    HGDIOBJ m_before;
};

// Confines drawing to `region` for as long as it lives.
class Clipped {
public:
    Clipped(HDC dc, const Region& region) : m_dc(dc), m_saved(SaveDC(dc))
    {
        ExtSelectClipRgn(dc, region.get(), RGN_AND);
    }
    Clipped(const Clipped&) = delete;
    Clipped& operator=(const Clipped&) = delete;
    ~Clipped() { RestoreDC(m_dc, m_saved); }

private:
    HDC m_dc;
    int m_saved;
};

// The answer to one WM_PAINT.
class Painting {
public:
    explicit Painting(HWND window) : m_window(window), m_dc(BeginPaint(window, &m_paint)) {}
    Painting(const Painting&) = delete;
    Painting& operator=(const Painting&) = delete;
    ~Painting() { EndPaint(m_window, &m_paint); }

    HDC dc() const { return m_dc; }

private:
    HWND m_window;
    PAINTSTRUCT m_paint{};
    HDC m_dc;
};
