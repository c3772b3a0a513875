#include "ui/windows/background.h"

#include "ui/windows/users_palette.h"

namespace {

TRIVERTEX vertex(LONG x, LONG y, Colour colour)
{
    constexpr COLOR16 kAlpha = 0xFF00;
    const auto channel = [](std::uint8_t value) { return static_cast<COLOR16>(value << 8); };
    return {x, y, channel(colour.red), channel(colour.green), channel(colour.blue), kAlpha};
}

}  // namespace

void paint_gradient(HDC dc, const RECT& area, const Gradient& gradient)
{
    TRIVERTEX corners[] = {vertex(area.left, area.top, gradient.start), vertex(area.right, area.bottom, gradient.end)};
    GRADIENT_RECT whole{0, 1};
    GradientFill(dc, corners, 2, &whole, 1, GRADIENT_FILL_RECT_V);
}

void paint_background(HDC dc, const RECT& client)
{
    paint_gradient(dc, client, users_palette().background);
}

BackgroundBehind background_behind(HWND control)
{
    const HWND parent = GetAncestor(control, GA_PARENT);
    RECT client{};
    const int height = parent != nullptr && GetClientRect(parent, &client) ? client.bottom - client.top : 0;

    RECT place{};
    GetWindowRect(control, &place);
    MapWindowPoints(HWND_DESKTOP, parent, reinterpret_cast<POINT*>(&place), 2);
    const auto sample = [height](int y) { return background_sample(y, height, users_palette().background); };
    return {{sample(place.top), sample(place.bottom)}, sample((place.top + place.bottom) / 2)};
}
