#include "app/windows/window_icons.h"

#include <utility>

namespace {

void set_icon(HWND window, WPARAM which, const Icon& icon)
{
    SendMessageW(window, WM_SETICON, which, reinterpret_cast<LPARAM>(icon.get()));
}

}  // namespace

Icon load_icon(HINSTANCE module, int size)
{
    // Not shared: a shared icon comes in the size that was asked for first.
    return Icon(static_cast<HICON>(
        LoadImageW(module, MAKEINTRESOURCEW(kIconResource), IMAGE_ICON, size, size, LR_DEFAULTCOLOR)));
}

void show_icons(HWND window, unsigned dpi, WindowIcons& shown)
{
    const auto module = reinterpret_cast<HINSTANCE>(GetWindowLongPtrW(window, GWLP_HINSTANCE));
    WindowIcons icons{load_icon(module, GetSystemMetricsForDpi(SM_CXICON, dpi)),
                      load_icon(module, GetSystemMetricsForDpi(SM_CXSMICON, dpi))};
    set_icon(window, ICON_BIG, icons.large_icon);
    set_icon(window, ICON_SMALL, icons.small_icon);
    std::swap(shown, icons);  // those of before die only now
}
