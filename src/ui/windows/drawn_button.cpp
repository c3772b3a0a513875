#include "ui/windows/drawn_button.h"

#include "ui/windows/keyboard.h"
#include "ui/windows/screen_reader.h"

#include <commctrl.h>

namespace {

void show_hand()
{
    SetCursor(LoadCursorW(nullptr, IDC_HAND));
}

void mouse_entered(HWND button)
{
    TRACKMOUSEEVENT leave{sizeof leave, TME_LEAVE, button, 0};
    TrackMouseEvent(&leave);
    if (GetPropW(button, kHotProperty) != nullptr) return;
    SetPropW(button, kHotProperty, reinterpret_cast<HANDLE>(1));
    InvalidateRect(button, nullptr, FALSE);
}

void mouse_left(HWND button)
{
    RemovePropW(button, kHotProperty);
    InvalidateRect(button, nullptr, FALSE);
}

// The arrow keys do not wander off to other controls, and Enter presses as Space does.
LRESULT wanted_keys(LPARAM lparam)
{
    return DLGC_WANTARROWS | (asks_about_key(lparam, VK_RETURN) ? DLGC_WANTMESSAGE : 0);
}

// Subclass procedure of a drawn button.
LRESULT CALLBACK behave(HWND button, UINT message, WPARAM wparam, LPARAM lparam, UINT_PTR id, DWORD_PTR)
{
    switch (message) {
    case WM_GETDLGCODE:
        return DefSubclassProc(button, message, wparam, lparam) | wanted_keys(lparam);
    case WM_KEYDOWN:
        if (wparam != VK_RETURN) break;
        if (is_fresh_key(lparam)) press(button);
        return 0;
    case WM_MOUSEMOVE:
        mouse_entered(button);
        show_hand();
        break;
    case WM_MOUSELEAVE:
        mouse_left(button);
        break;
    case WM_SETCURSOR:
        if (LOWORD(lparam) != HTCLIENT) break;
        show_hand();
        return TRUE;
    case WM_ERASEBKGND:
        // Windows would fill an owner-drawn button with grey, which shows until the button is drawn over it.
        return TRUE;
    case WM_ENABLE:
        // Painted when its turn comes, not at once, with whoever disabled it waiting.
        InvalidateRect(button, nullptr, FALSE);
        return 0;
    case WM_GETOBJECT:
        if (static_cast<LONG>(lparam) != OBJID_CLIENT) break;
        return answer_screen_reader(button, wparam, kAccessibleButton);
    case WM_NCDESTROY:
        RemovePropW(button, kHotProperty);
        RemovePropW(button, kAccessibleNameProperty);
        RemoveWindowSubclass(button, behave, id);
        break;
    default:
        break;
    }
    return DefSubclassProc(button, message, wparam, lparam);
}

}  // namespace

HWND create_drawn_button(HWND parent, int id, const wchar_t* label, const Rect& place)
{
    constexpr DWORD kStyle = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | WS_TABSTOP | BS_OWNERDRAW;
    const HWND button =
        CreateWindowExW(0, L"BUTTON", label, kStyle, place.x, place.y, place.width, place.height, parent,
                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleW(nullptr), nullptr);
    if (button != nullptr) SetWindowSubclass(button, behave, 0, 0);
    return button;
}
