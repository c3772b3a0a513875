#include "ui/windows/users_palette.h"

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
