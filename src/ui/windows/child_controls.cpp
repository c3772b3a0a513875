#include "ui/windows/child_controls.h"

#include <commctrl.h>

namespace {

constexpr int kProvisionalSize = 10;

HWND create_child(HWND parent, int id, const wchar_t* window_class, const wchar_t* text, DWORD style,
                  DWORD extended_style)
{
    return CreateWindowExW(extended_style, window_class, text, WS_CHILD | WS_VISIBLE | style, 0, 0, kProvisionalSize,
                           kProvisionalSize, parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                           GetModuleHandleW(nullptr), nullptr);
}

}  // namespace

HWND create_label(HWND parent, int id, const wchar_t* text, DWORD style)
{
    return create_child(parent, id, L"STATIC", text, style, 0);
}

HWND create_field(HWND parent, int id, const wchar_t* text, DWORD more_style)
{
    return create_child(parent, id, L"EDIT", text, WS_TABSTOP | ES_AUTOHSCROLL | more_style, WS_EX_CLIENTEDGE);
}

void set_cue(HWND field, const wchar_t* cue)
{
    constexpr WPARAM kAlsoWhileFocused = TRUE;
    SendMessageW(field, EM_SETCUEBANNER, kAlsoWhileFocused, reinterpret_cast<LPARAM>(cue));
}

void set_font(HWND control, const Font& font)
{
    SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font.get()), TRUE);
}
