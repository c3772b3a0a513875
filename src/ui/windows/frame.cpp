#include "ui/windows/frame.h"

#include "ui/windows/gdi.h"
#include "ui/windows/users_palette.h"

#include <dwmapi.h>

namespace {

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

}  // namespace

void apply_frame_colours(HWND window)
{
    const auto& frame = users_palette().frame;
    set_frame(window, kUseDarkMode, frame.has_value());
    set_frame(window, kCaptionColour, frame ? colorref(frame->caption) : kWindowsChoice);
    set_frame(window, kBorderColour, frame ? colorref(frame->border) : kWindowsChoice);
    set_frame(window, kTextColour, frame ? colorref(frame->text) : kWindowsChoice);
}
