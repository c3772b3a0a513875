#include "settings/windows/settings_window.h"

#include "settings/windows/settings_window_controls.h"
#include "settings/windows/settings_window_password.h"
#include "ui/geometry.h"
#include "ui/windows/drawn_button.h"
#include "ui/windows/keyboard.h"
#include "ui/windows/theme.h"

#include <memory>
#include <utility>

namespace {

constexpr wchar_t kWindowClass[] = L"CorvaneBrassletSettings";
constexpr DWORD kStyle = WS_CAPTION | WS_SYSMENU;
constexpr DWORD kExtendedStyle = WS_EX_DLGMODALFRAME;
constexpr int kRightOfOwner = 40;  // of the main window's top left corner, at 96 DPI
constexpr int kBelowOwner = 60;

// Lives from the first message of its window to the last. The fonts are the window's own: the main window's are made
// anew when its monitor changes.
struct OpenWindow {
    SettingsWindowHost host;
    unsigned dpi = host.dpi;  // its own: it may stand on another monitor
    Fonts fonts = make_fonts(dpi);
    Brush card_brush = solid_brush(users_palette().card);
    Brush edit_brush = solid_brush(users_palette().field);
    bool password_is_shown = false;
};

OpenWindow* open_window(HWND window)
{
    return reinterpret_cast<OpenWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
}

// The window takes over what CreateWindowExW was given.
void adopt(HWND window, const CREATESTRUCTW& creation)
{
    auto& given = *static_cast<std::unique_ptr<OpenWindow>*>(creation.lpCreateParams);
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(given.release()));
}

void paint(HWND window)
{
    const Painting painting(window);
    RECT client{};
    GetClientRect(window, &client);
    paint_background(painting.dc(), client);
}

void draw_button(const OpenWindow& open, const DRAWITEMSTRUCT& item)
{
    const Picture eye = open.password_is_shown ? Picture::open_eye : Picture::struck_eye;
    const Picture picture = item.CtlID == kShowPasswordButton ? eye : Picture::none;
    paint_drawn_button(item, {open.dpi, open.fonts.body.get(), picture});
}

void on_new_colours(HWND window, OpenWindow& open)
{
    refresh_users_palette();
    open.card_brush = solid_brush(users_palette().card);
    open.edit_brush = solid_brush(users_palette().field);
    apply_frame_colours(window);
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
}

// With its frame.
Size window_size(unsigned dpi)
{
    const Size client = settings_client_size(dpi);
    RECT frame{0, 0, client.width, client.height};
    AdjustWindowRectExForDpi(&frame, kStyle, FALSE, kExtendedStyle, dpi);
    return {frame.right - frame.left, frame.bottom - frame.top};
}

void on_dpi_changed(HWND window, OpenWindow& open, unsigned dpi, const RECT& suggested)
{
    open.dpi = dpi;
    // The controls still hold the old fonts: these die only after the new ones have been handed out.
    const Fonts old = std::exchange(open.fonts, make_fonts(dpi));
    fit_settings_controls(window, open.fonts, dpi);
    SetWindowPos(window, nullptr, suggested.left, suggested.top, suggested.right - suggested.left,
                 suggested.bottom - suggested.top, SWP_NOZORDER | SWP_NOACTIVATE);
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
}

// A window that is born on another monitor than its owner's hears of no change.
void adopt_dpi_of_monitor(HWND window, OpenWindow& open)
{
    const unsigned dpi = start_dpi(GetDpiForWindow(window));
    if (dpi == start_dpi(GetDpiForWindow(open.host.main_window))) return;
    RECT place{};
    GetWindowRect(window, &place);
    const Size size = window_size(dpi);
    on_dpi_changed(window, open, dpi, {place.left, place.top, place.left + size.width, place.top + size.height});
}

// Windows asks before it suggests a place on the new monitor. Its own answer would scale the frame with the rest.
LRESULT answer_size_at(unsigned dpi, SIZE& answer)
{
    const Size size = window_size(dpi);
    answer = {size.width, size.height};
    return TRUE;
}

LRESULT colour_control(HDC dc, Colour text, Colour background, const Brush& brush)
{
    SetTextColor(dc, colorref(text));
    SetBkColor(dc, colorref(background));
    return reinterpret_cast<LRESULT>(brush.get());
}

void toggle_password(HWND window, OpenWindow& open)
{
    const HWND field = GetDlgItem(window, kPasswordField);
    open.password_is_shown = !open.password_is_shown;
    if (open.password_is_shown && GetWindowTextLengthW(field) == 0)
        put_password(field, open.host.settings->pass.in_clear());
    show_password(field, open.password_is_shown);
    name_eye(window, open.password_is_shown);
    InvalidateRect(GetDlgItem(window, kShowPasswordButton), nullptr, FALSE);
}

void keep_and_close(HWND window, const OpenWindow& open)
{
    open.host.on_closed(copy_settings_fields(window));
    DestroyWindow(window);
}

void on_command(HWND window, OpenWindow& open, int id, int notification)
{
    if (id == kShowPasswordButton) toggle_password(window, open);
    if (id == kPasswordHint && notification == STN_CLICKED)
        open.host.on_password_page(control_text(GetDlgItem(window, kSiteField)), window);
    if (id == kCloseSettingsButton) keep_and_close(window, open);
}

LRESULT CALLBACK settings_window_procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam)
{
    if (message == WM_NCCREATE) adopt(window, *reinterpret_cast<const CREATESTRUCTW*>(lparam));
    OpenWindow* open = open_window(window);
    if (open == nullptr) return DefWindowProcW(window, message, wparam, lparam);
    if (tells_of_new_colours(message)) on_new_colours(window, *open);
    keep_focus(window, message, wparam);
    const Palette& palette = users_palette();
    switch (message) {
    case WM_PAINT:
        paint(window);
        return 0;
    case WM_ERASEBKGND:
        return 1;
    case WM_DRAWITEM:
        draw_button(*open, *reinterpret_cast<const DRAWITEMSTRUCT*>(lparam));
        return 1;
    case WM_CTLCOLOREDIT:
        return colour_control(reinterpret_cast<HDC>(wparam), palette.field_text, palette.field, open->edit_brush);
    case WM_CTLCOLORSTATIC:
        return colour_control(reinterpret_cast<HDC>(wparam), palette.card_text, palette.card, open->card_brush);
    case WM_GETDPISCALEDSIZE:
        return answer_size_at(static_cast<unsigned>(wparam), *reinterpret_cast<SIZE*>(lparam));
    case WM_DPICHANGED:
        on_dpi_changed(window, *open, HIWORD(wparam), *reinterpret_cast<const RECT*>(lparam));
        return 0;
    case WM_COMMAND:
        on_command(window, *open, LOWORD(wparam), HIWORD(wparam));
        return 0;
    case WM_CLOSE:
        keep_and_close(window, *open);
        return 0;
    case WM_DESTROY:
        wipe_password_field(GetDlgItem(window, kPasswordField));
        *open->host.handle = nullptr;
        return 0;
    case WM_NCDESTROY:
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        delete open;
        break;
    default:
        break;
    }
    return DefWindowProcW(window, message, wparam, lparam);
}

ATOM register_window_class()
{
    WNDCLASSEXW window_class{};
    window_class.cbSize = sizeof window_class;
    window_class.lpfnWndProc = settings_window_procedure;
    window_class.hInstance = GetModuleHandleW(nullptr);
    window_class.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    window_class.lpszClassName = kWindowClass;
    return RegisterClassExW(&window_class);
}

HWND create_window(const SettingsWindowHost& host)
{
    const Size size = window_size(host.dpi);
    RECT owner{};
    GetWindowRect(host.main_window, &owner);

    auto open = std::make_unique<OpenWindow>(OpenWindow{host});
    return CreateWindowExW(kExtendedStyle, kWindowClass, L"Settings", kStyle,
                           owner.left + scaled(kRightOfOwner, host.dpi), owner.top + scaled(kBelowOwner, host.dpi),
                           size.width, size.height, host.main_window, nullptr, GetModuleHandleW(nullptr), &open);
}

}  // namespace

void open_settings_window(const SettingsWindowHost& host)
{
    if (*host.handle != nullptr) {
        SetForegroundWindow(*host.handle);
        return;
    }
    static const ATOM registered = register_window_class();
    const HWND window = registered != 0 ? create_window(host) : nullptr;
    if (window == nullptr) return;

    *host.handle = window;
    create_settings_controls(window, *host.settings, open_window(window)->fonts, host.dpi);
    adopt_dpi_of_monitor(window, *open_window(window));
    apply_frame_colours(window);
    ShowWindow(window, SW_SHOW);
    SetFocus(GetDlgItem(window, kSiteField));
}

SettingsNotice copy_settings_fields(HWND window)
{
    return take_typed(typed_settings(window), *open_window(window)->host.settings);
}

void show_settings_fields(HWND window)
{
    show_in_fields(window, *open_window(window)->host.settings);
}
