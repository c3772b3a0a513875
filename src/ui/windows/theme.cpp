#include "ui/windows/theme.h"

#include <dwmapi.h>

namespace {

bool wants_high_contrast()
{
    HIGHCONTRASTW setting{};
    setting.cbSize = sizeof setting;
    return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof setting, &setting, 0) &&
           (setting.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

Colour system_colour(int index)
{
    const DWORD colour = GetSysColor(index);
    return {GetRValue(colour), GetGValue(colour), GetBValue(colour)};
}

SystemColours system_colours()
{
    return {system_colour(COLOR_WINDOW),    system_colour(COLOR_WINDOWTEXT),   system_colour(COLOR_HOTLIGHT),
            system_colour(COLOR_BTNFACE),   system_colour(COLOR_BTNTEXT),      system_colour(COLOR_GRAYTEXT),
            system_colour(COLOR_HIGHLIGHT), system_colour(COLOR_HIGHLIGHTTEXT)};
}

Palette read_palette()
{
    return wants_high_contrast() ? high_contrast_palette(system_colours()) : Palette();
}

Palette& kept_palette()
{
    static Palette palette = read_palette();
    return palette;
}

// Windows 11's names for these attributes are younger than the headers of some toolchains.
constexpr DWORD kUseDarkMode = 20;
constexpr DWORD kBorderColour = 34;
constexpr DWORD kCaptionColour = 35;
constexpr DWORD kTextColour = 36;
constexpr DWORD kWindowsChoice = 0xFFFFFFFF;

void set_frame(HWND window, DWORD attribute, DWORD value)
{
    DwmSetWindowAttribute(window, attribute, &value, sizeof value);
}

TRIVERTEX vertex(LONG x, LONG y, Colour colour)
{
    constexpr COLOR16 kAlpha = 0xFF00;
    const auto channel = [](std::uint8_t value) { return static_cast<COLOR16>(value << 8); };
    return {x, y, channel(colour.red), channel(colour.green), channel(colour.blue), kAlpha};
}

}  // namespace

const Palette& users_palette()
{
    return kept_palette();
}

void refresh_users_palette()
{
    kept_palette() = read_palette();
}

bool tells_of_new_colours(UINT message)
{
    return message == WM_SYSCOLORCHANGE || message == WM_THEMECHANGED || message == WM_SETTINGCHANGE;
}

void apply_frame_colours(HWND window)
{
    const auto& frame = users_palette().frame;
    set_frame(window, kUseDarkMode, frame.has_value());
    set_frame(window, kCaptionColour, frame ? colorref(frame->caption) : kWindowsChoice);
    set_frame(window, kBorderColour, frame ? colorref(frame->border) : kWindowsChoice);
    set_frame(window, kTextColour, frame ? colorref(frame->text) : kWindowsChoice);
}

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
