#include "app/windows/main_window.h"

#include "app/windows/app_state.h"
#include "app/windows/main_window_events.h"
#include "app/windows/window_icons.h"

namespace {

constexpr DWORD kStyle = (WS_OVERLAPPEDWINDOW & ~static_cast<DWORD>(WS_MAXIMIZEBOX)) | WS_CLIPCHILDREN;
static_assert(kStyle == 0x02CE0000);

// With its frame.
Size start_size(unsigned dpi)
{
    const Size client = start_client_size(dpi);
    RECT window{0, 0, client.width, client.height};
    AdjustWindowRectExForDpi(&window, kStyle, FALSE, 0, dpi);
    return {window.right - window.left, window.bottom - window.top};
}

}  // namespace

void register_main_window_class(HINSTANCE instance)
{
    // The class keeps them as long as it lives.
    const HICON large_icon = load_icon(instance, 32).release();
    const HICON small_icon = load_icon(instance, 16).release();

    WNDCLASSEXW window_class{};
    window_class.cbSize = sizeof window_class;
    window_class.lpfnWndProc = main_window_procedure;
    window_class.hInstance = instance;
    window_class.hIcon = large_icon != nullptr ? large_icon : LoadIconW(nullptr, IDI_APPLICATION);
    window_class.hIconSm = small_icon != nullptr ? small_icon : window_class.hIcon;
    window_class.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    window_class.lpszClassName = kMainWindowClass;
    RegisterClassExW(&window_class);
}

HWND create_main_window(HINSTANCE instance)
{
    const unsigned expected_dpi = app_state().dpi;
    const Size expected = start_size(expected_dpi);
    const HWND window = CreateWindowExW(0, kMainWindowClass, L"Brasslet", kStyle, CW_USEDEFAULT, CW_USEDEFAULT,
                                        expected.width, expected.height, nullptr, nullptr, instance, nullptr);
    // Windows has chosen the place, and with it the monitor. A window that is born there hears of no change.
    if (window == nullptr || app_state().dpi == expected_dpi) return window;
    const Size size = start_size(app_state().dpi);
    SetWindowPos(window, nullptr, 0, 0, size.width, size.height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    return window;
}
