#include "kit/windows/high_contrast.h"

#include "ui/windows/gdi.h"
#include "ui/windows/theme.h"

#include <map>

// NOLINTBEGIN(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)
extern "C" decltype(&SystemParametersInfoW) __imp_SystemParametersInfoW;
extern "C" decltype(&GetSysColor) __imp_GetSysColor;
// NOLINTEND(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)

namespace {

BOOL WINAPI answer_high_contrast(UINT action, UINT size, PVOID answer, UINT)
{
    if (action != SPI_GETHIGHCONTRAST || size != sizeof(HIGHCONTRASTW)) return FALSE;
    static_cast<HIGHCONTRASTW*>(answer)->dwFlags = HCF_HIGHCONTRASTON | HCF_AVAILABLE;
    return TRUE;
}

DWORD WINAPI answer_colour(int index)
{
    static const std::map<int, Colour> colours = {
        {COLOR_WINDOW, kContrastScheme.window},       {COLOR_WINDOWTEXT, kContrastScheme.window_text},
        {COLOR_HOTLIGHT, kContrastScheme.link},       {COLOR_BTNFACE, kContrastScheme.button},
        {COLOR_BTNTEXT, kContrastScheme.button_text}, {COLOR_GRAYTEXT, kContrastScheme.grey_text},
        {COLOR_HIGHLIGHT, kContrastScheme.highlight}, {COLOR_HIGHLIGHTTEXT, kContrastScheme.highlight_text}};
    return colorref(colours.at(index));
}

}  // namespace

HighContrast::HighContrast()
    : m_parameters(__imp_SystemParametersInfoW, answer_high_contrast), m_colours(__imp_GetSysColor, answer_colour)
{
}

HighContrast::~HighContrast() = default;
