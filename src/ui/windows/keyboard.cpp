#include "ui/windows/keyboard.h"

namespace {

// Window property of a top-level window: the control that had the focus when the user left.
constexpr wchar_t kFocusProperty[] = L"payname.focus";

// Window property of a top-level window whose user works with the keyboard. Windows' own note of it (WM_QUERYUISTATE)
// is not kept when the user wants the letters of menus underlined at all times.
constexpr wchar_t kKeyboardProperty[] = L"payname.keyboard";

void remember_focus(HWND window)
{
    const HWND focus = GetFocus();
    if (IsChild(window, focus)) SetPropW(window, kFocusProperty, focus);
}

void give_focus_back(HWND window)
{
    const auto focus = static_cast<HWND>(GetPropW(window, kFocusProperty));
    if (IsChild(window, focus) && IsWindowEnabled(focus)) SetFocus(focus);
}

bool is_minimising(WPARAM command)
{
    constexpr WPARAM kSystemsOwnBits = 0xF;
    return (command & ~kSystemsOwnBits) == SC_MINIMIZE;
}

WPARAM pressed(HWND control)
{
    static_assert(BN_CLICKED == STN_CLICKED);
    return MAKEWPARAM(GetDlgCtrlID(control), BN_CLICKED);
}

}  // namespace

void keep_focus(HWND window, UINT message, WPARAM wparam)
{
    switch (message) {
    case WM_ACTIVATE:
        if (LOWORD(wparam) == WA_INACTIVE) remember_focus(window);
        break;
    case WM_SYSCOMMAND:
        // A minimised window has lost the focus already when it hears that it is not active any more.
        if (is_minimising(wparam)) remember_focus(window);
        break;
    case WM_SETFOCUS:
        give_focus_back(window);
        break;
    case WM_NCDESTROY:
        RemovePropW(window, kFocusProperty);
        RemovePropW(window, kKeyboardProperty);
        break;
    default:
        break;
    }
}

bool handle_dialog_message(HWND window, MSG& message)
{
    if (message.hwnd == window || IsChild(window, message.hwnd)) {
        if (message.message == WM_KEYDOWN && message.wParam == VK_TAB) set_focus_shown(window, true);
        if (message.message == WM_LBUTTONDOWN || message.message == WM_LBUTTONDBLCLK) set_focus_shown(window, false);
    }
    return IsDialogMessageW(window, &message) != FALSE;
}

void set_focus_shown(HWND window, bool is_shown)
{
    if (is_shown == (GetPropW(window, kKeyboardProperty) != nullptr)) return;
    if (is_shown)
        SetPropW(window, kKeyboardProperty, reinterpret_cast<HANDLE>(1));
    else
        RemovePropW(window, kKeyboardProperty);
    const HWND focus = GetFocus();
    if (IsChild(window, focus)) InvalidateRect(focus, nullptr, FALSE);
}

bool shows_focus(HWND control)
{
    return GetFocus() == control && GetPropW(GetAncestor(control, GA_ROOT), kKeyboardProperty) != nullptr;
}

bool asks_about_key(LPARAM lparam, WPARAM key)
{
    // The keys in question are also the characters that they make.
    const auto* message = reinterpret_cast<const MSG*>(lparam);
    return message != nullptr && message->wParam == key &&
           (message->message == WM_KEYDOWN || message->message == WM_CHAR);
}

bool is_fresh_key(LPARAM lparam)
{
    return (HIWORD(lparam) & KF_REPEAT) == 0;
}

void press(HWND control)
{
    SendMessageW(GetAncestor(control, GA_PARENT), WM_COMMAND, pressed(control), reinterpret_cast<LPARAM>(control));
}

bool post_press(HWND control)
{
    return PostMessageW(GetAncestor(control, GA_PARENT), WM_COMMAND, pressed(control),
                        reinterpret_cast<LPARAM>(control)) != FALSE;
}
