#include "ui/windows/link.h"

#include "ui/windows/keyboard.h"
#include "ui/windows/screen_reader.h"

#include <commctrl.h>

namespace {

bool is_press_key(WPARAM key)
{
    return key == VK_RETURN || key == VK_SPACE;
}

LRESULT CALLBACK follow_keys(HWND label, UINT message, WPARAM wparam, LPARAM lparam, UINT_PTR id, DWORD_PTR)
{
    switch (message) {
    case WM_GETDLGCODE: {
        const bool is_asked = asks_about_key(lparam, VK_RETURN) || asks_about_key(lparam, VK_SPACE);
        return DefSubclassProc(label, message, wparam, lparam) | (is_asked ? DLGC_WANTMESSAGE : 0);
    }
    case WM_KEYDOWN:
        if (!is_press_key(wparam)) break;
        if (is_fresh_key(lparam)) press(label);
        return 0;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
        InvalidateRect(label, nullptr, FALSE);
        break;
    case WM_GETOBJECT:
        if (static_cast<LONG>(lparam) != OBJID_CLIENT) break;
        return answer_screen_reader(label, wparam, kAccessibleLink);
    case WM_NCDESTROY:
        RemoveWindowSubclass(label, follow_keys, id);
        break;
    default:
        break;
    }
    return DefSubclassProc(label, message, wparam, lparam);
}

}  // namespace

void make_link(HWND label)
{
    SetWindowSubclass(label, follow_keys, 0, 0);
    SetWindowLongPtrW(label, GWL_STYLE, GetWindowLongPtrW(label, GWL_STYLE) | WS_TABSTOP);
}
