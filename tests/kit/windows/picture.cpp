#include "kit/windows/picture.h"

#include <algorithm>

namespace {

Colour colour_of(std::uint32_t pixel)
{
    return {static_cast<std::uint8_t>(pixel >> 16), static_cast<std::uint8_t>(pixel >> 8),
            static_cast<std::uint8_t>(pixel)};
}

}  // namespace

Picture::Picture(HWND window)
{
    RECT client{};
    GetClientRect(window, &client);
    m_size = {client.right, client.bottom};
    m_pixels.resize(static_cast<std::size_t>(m_size.width) * static_cast<std::size_t>(m_size.height));

    BITMAPINFO form{};
    form.bmiHeader = {sizeof form.bmiHeader, m_size.width, -m_size.height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    HDC source = GetDC(window);
    HDC memory = CreateCompatibleDC(source);
    void* bits = nullptr;
    HBITMAP bitmap = CreateDIBSection(source, &form, DIB_RGB_COLORS, &bits, nullptr, 0);
    HGDIOBJ before = SelectObject(memory, bitmap);
    BitBlt(memory, 0, 0, m_size.width, m_size.height, source, 0, 0, SRCCOPY);
    GdiFlush();
    const auto* first = static_cast<const std::uint32_t*>(bits);
    std::transform(first, first + m_pixels.size(), m_pixels.begin(),
                   [](std::uint32_t pixel) { return pixel & 0xFFFFFF; });
    SelectObject(memory, before);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(window, source);
}

Colour Picture::at(int x, int y) const
{
    return colour_of(m_pixels.at(static_cast<std::size_t>(y) * static_cast<std::size_t>(m_size.width) +
                                 static_cast<std::size_t>(x)));
}

bool Picture::shows(Colour colour) const
{
    return std::ranges::any_of(m_pixels, [&](std::uint32_t pixel) { return colour_of(pixel) == colour; });
}

Picture repainted(HWND window)
{
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_UPDATENOW);
    return Picture(window);
}
