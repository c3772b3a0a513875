#include "app/main_window.h"

#include "app/app_state.h"
#include "app/main_window_events.h"

namespace {

constexpr DWORD kStyle = (WS_OVERLAPPEDWINDOW & ~static_cast<DWORD>(WS_MAXIMIZEBOX)) | WS_CLIPCHILDREN;
static_assert(kStyle == 0x02CE0000);

constexpr int kIconId = 1;

HICON load_icon(HINSTANCE instance, int size)
{
    // Not shared: a shared icon comes in the size that was asked for first. The class keeps it as long as it lives.
    return static_cast<HICON>(LoadImageW(instance, MAKEINTRESOURCEW(kIconId), IMAGE_ICON, size, size, LR_DEFAULTCOLOR));
}

}  // namespace

void register_main_window_class(HINSTANCE instance)
{
    const HICON large = load_icon(instance, 32);
    const HICON small_icon = load_icon(instance, 16);

    WNDCLASSEXW window_class{};
    window_class.cbSize = sizeof window_class;
    window_class.lpfnWndProc = main_window_procedure;
    window_class.hInstance = instance;
    window_class.hIcon = large != nullptr ? large : LoadIconW(nullptr, IDI_APPLICATION);
    window_class.hIconSm = small_icon != nullptr ? small_icon : window_class.hIcon;
    window_class.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    window_class.lpszClassName = kMainWindowClass;
    RegisterClassExW(&window_class);
}

HWND create_main_window(HINSTANCE instance)
{
    const unsigned dpi = app_state().dpi;
    const Size client = start_client_size(dpi);
    RECT window{0, 0, client.width, client.height};
    AdjustWindowRectExForDpi(&window, kStyle, FALSE, 0, dpi);
    return CreateWindowExW(0, kMainWindowClass, L"Brasslet", kStyle, CW_USEDEFAULT, CW_USEDEFAULT,
                           window.right - window.left, window.bottom - window.top, nullptr, nullptr, instance, nullptr);
}
