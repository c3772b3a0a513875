#include "ui/frame.h"

#include "ui/gdi.h"

#include <dwmapi.h>

namespace {

// Windows 11's names for these attributes are younger than the headers of some toolchains.
constexpr DWORD kUseDarkMode = 20;
constexpr DWORD kBorderColour = 34;
constexpr DWORD kCaptionColour = 35;
constexpr DWORD kTextColour = 36;

void set_frame(HWND window, DWORD attribute, DWORD value)
{
    DwmSetWindowAttribute(window, attribute, &value, sizeof value);
}

}  // namespace

void apply_frame_colours(HWND window)
{
    set_frame(window, kUseDarkMode, TRUE);
    set_frame(window, kCaptionColour, colorref(kFrameCaption));
    set_frame(window, kBorderColour, colorref(kFrameBorder));
    set_frame(window, kTextColour, colorref(kFrameText));
}
