#include "app/windows/main_window.h"

#include "app/windows/app_state.h"
#include "app/windows/busy_guard.h"
#include "app/windows/cards.h"
#include "app/windows/controls.h"
#include "app/windows/main_window_painting.h"
#include "app/windows/name_guard.h"
#include "app/windows/open_settings.h"
#include "app/windows/update_notice.h"
#include "app/windows/window_icons.h"
#include "app/windows/workers.h"
#include "ui/windows/keyboard.h"
#include "ui/windows/theme.h"

#include <utility>

namespace {

constexpr DWORD kStyle = (WS_OVERLAPPEDWINDOW & ~static_cast<DWORD>(WS_MAXIMIZEBOX)) | WS_CLIPCHILDREN;
static_assert(kStyle == 0x02CE0000);

constexpr UINT_PTR kIdleTimer = 1;

// With its frame.
Size start_size(unsigned dpi)
{
    const Size client = start_client_size(dpi);
    RECT window{0, 0, client.width, client.height};
    AdjustWindowRectExForDpi(&window, kStyle, FALSE, 0, dpi);
    return {window.right - window.left, window.bottom - window.top};
}

MainLayout layout_of(HWND window)
{
    RECT client{};
    GetClientRect(window, &client);
    return main_layout(client.right, app_state().dpi);
}

void on_create(HWND window, const std::function<CardTexts()>& first_texts)
{
    AppState& state = app_state();
    state.main_window = window;
    state.dpi = start_dpi(GetDpiForWindow(window));
    show_icons(window, state.dpi, state.icons);
    state.fonts = make_fonts(state.dpi);
    refresh_colours(window);
    state.layout = layout_of(window);
    create_controls(window);
    refresh_version_label();
    show_cards(first_texts());
    tell_of_read_settings();
    SetTimer(window, kIdleTimer, USER_TIMER_MINIMUM, nullptr);
}

// The first timer message comes when all else is done, the painting of the new window too. Any program can send
// another.
void on_idle(HWND window)
{
    KillTimer(window, kIdleTimer);
    if (app_state().tips == nullptr) create_tips_of_controls();
}

void lay_out(HWND window)
{
    AppState& state = app_state();
    const MainLayout before = std::exchange(state.layout, layout_of(window));
    if (std::exchange(state.is_new, false) && state.layout == before) return;
    place_controls();
    // The controls too, wherever they stand: what shows behind them goes with the height of the window. Nothing is
    // erased, since all of them paint everything that they cover. Only the field has a frame to be painted, and a
    // background that it leaves to be erased.
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
    RedrawWindow(GetDlgItem(window, kNameField), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME);
}

void on_size(HWND window, WPARAM how)
{
    if (how != SIZE_MINIMIZED) lay_out(window);
}

void on_dpi_changed(HWND window, unsigned dpi, const RECT& suggested)
{
    AppState& state = app_state();
    state.dpi = dpi;
    show_icons(window, dpi, state.icons);
    // The controls still hold the old fonts: these die only after the new ones have been handed out.
    Fonts old = std::exchange(state.fonts, make_fonts(dpi));
    reassign_control_fonts();
    if (!state.fonts_at_creation.body) state.fonts_at_creation = std::move(old);

    SetWindowPos(window, nullptr, suggested.left, suggested.top, suggested.right - suggested.left,
                 suggested.bottom - suggested.top, SWP_NOZORDER | SWP_NOACTIVATE);
    lay_out(window);
}

void limit_size(MINMAXINFO& limits)
{
    const Size smallest = smallest_window_size(app_state().dpi);
    limits.ptMinTrackSize = {smallest.width, smallest.height};
}

void on_command(HWND window, int id, int notification)
{
    if (id == kNameField && notification == EN_CHANGE) refresh_name_preview();
    // Behind a question nothing is pressed. From mouse and keys Windows keeps it; a screen reader's press comes all
    // the same.
    if (!IsWindowEnabled(window)) return;
    switch (id) {
    case kVersionLabel:
        if (notification == STN_CLICKED) open_update_page();
        break;
    case kKeptNames:
        if (notification == STN_CLICKED) on_kept_names_pressed();
        break;
    case kConnectButton:
        on_connect_pressed();
        break;
    case kUnbindButton:
        on_unbind_pressed();
        break;
    case kSettingsButton:
        open_settings();
        break;
    case kInstallButton:
    case kPublishButton:
    case kRemoveButton:
        on_flow_pressed(id);
        break;
    case kCloseButton:
        DestroyWindow(window);
        break;
    default:
        break;
    }
}

void on_notify(NMHDR& notification)
{
    if (notification.hwndFrom == app_state().tips && notification.code == TTN_GETDISPINFOW)
        answer_tip(reinterpret_cast<NMTTDISPINFOW&>(notification));
}

// The session ends: what closing both windows would keep is kept now. The process is ended as it stands, and no window
// is destroyed before.
void on_session_end()
{
    keep_settings(copy_open_settings());
}

template <typename Text>
void discard_late(HWND window, UINT message)
{
    MSG late{};
    while (PeekMessageW(&late, window, message, message, PM_REMOVE))
        receive_text<Text>(late.lParam);
}

// A result that was posted just before the end finds nobody any more.
void discard_late_results(HWND window)
{
    discard_late<std::wstring>(window, MsgFlowResult);
    discard_late<std::string>(window, MsgConnectResult);
    discard_late<GuardResult>(window, MsgGuardResult);
    discard_late<KeptName>(window, MsgNameKept);
}

void on_destroy(HWND window)
{
    keep_settings();
    if (app_state().settings_window != nullptr) DestroyWindow(app_state().settings_window);
    discard_late_results(window);  // before there is a quit message, which passes every filter
    PostQuitMessage(0);
}

}  // namespace

LRESULT CALLBACK main_window_procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam)
{
    if (tells_of_new_colours(message)) repaint_in_new_colours(window);
    keep_focus(window, message, wparam);
    switch (message) {
    case WM_CREATE:
        on_create(window, *static_cast<const std::function<CardTexts()>*>(
                              reinterpret_cast<const CREATESTRUCTW*>(lparam)->lpCreateParams));
        return 0;
    case WM_SIZE:
        on_size(window, wparam);
        return 0;
    case WM_DPICHANGED:
        on_dpi_changed(window, HIWORD(wparam), *reinterpret_cast<const RECT*>(lparam));
        return 0;
    case WM_GETMINMAXINFO:
        limit_size(*reinterpret_cast<MINMAXINFO*>(lparam));
        return 0;
    case WM_ERASEBKGND:
        return 1;
    case WM_PAINT:
        paint_main_window(window);
        return 0;
    case WM_DRAWITEM:
        draw_button(*reinterpret_cast<const DRAWITEMSTRUCT*>(lparam));
        return 1;
    case WM_CTLCOLORSTATIC:
        return reinterpret_cast<LRESULT>(colour_static(reinterpret_cast<HDC>(wparam), reinterpret_cast<HWND>(lparam)));
    case WM_CTLCOLOREDIT:
        return reinterpret_cast<LRESULT>(colour_field(reinterpret_cast<HDC>(wparam)));
    case WM_COMMAND:
        on_command(window, LOWORD(wparam), HIWORD(wparam));
        return 0;
    case WM_TIMER:
        on_idle(window);
        return 0;
    case WM_NOTIFY:
        on_notify(*reinterpret_cast<NMHDR*>(lparam));
        return 0;
    // A string that no worker has posted is somebody else's: no work has come to its end.
    case MsgConnectResult:
        if (const auto result = receive_text<std::string>(lparam)) on_connect_result(*result);
        return 0;
    case MsgFlowResult:
        if (const auto sentence = receive_text<std::wstring>(lparam)) on_flow_result(*sentence);
        return 0;
    case MsgGuardResult:
        if (const auto result = receive_text<GuardResult>(lparam)) on_guard_result(*result);
        return 0;
    case MsgNameKept:
        if (const auto kept = receive_text<KeptName>(lparam)) on_name_kept(*kept);
        return 0;
    case MsgUpdateResult:
        on_update_result(static_cast<std::int32_t>(wparam - 1));
        return 0;
    case MsgShowPackage:
        show_plugin_upload(app_state().settings.site, window);
        return 0;
    case WM_QUERYENDSESSION:
        return TRUE;
    case WM_ENDSESSION:
        if (wparam != FALSE) on_session_end();
        return 0;
    case WM_DESTROY:
        on_destroy(window);
        return 0;
    default:
        break;
    }
    return DefWindowProcW(window, message, wparam, lparam);
}

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

HWND create_main_window(HINSTANCE instance, const std::function<CardTexts()>& first_texts)
{
    const unsigned expected_dpi = app_state().dpi;
    const Size expected = start_size(expected_dpi);
    const HWND window = CreateWindowExW(0, kMainWindowClass, L"Brasslet", kStyle, CW_USEDEFAULT, CW_USEDEFAULT,
                                        expected.width, expected.height, nullptr, nullptr, instance,
                                        const_cast<std::function<CardTexts()>*>(&first_texts));
    // Windows has chosen the place, and with it the monitor. A window that is born there hears of no change.
    if (window == nullptr || app_state().dpi == expected_dpi) return window;
    const Size size = start_size(app_state().dpi);
    SetWindowPos(window, nullptr, 0, 0, size.width, size.height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    return window;
}
