#include "ui/windows/painted_static.h"

#include "ui/windows/background.h"
#include "ui/windows/keyboard.h"

#include <commctrl.h>

#include <algorithm>

namespace {

constexpr int kLongestText = 640;

// A line under the text, in its colour, when the keyboard has been moved to a label that it can press.
void paint_focus(HDC dc, const RECT& client, const wchar_t* text, int length)
{
    SIZE size{};
    GetTextExtentPoint32W(dc, text, length, &size);
    constexpr int kShareOfHeight = 9;
    const RECT line{client.left, client.bottom - client.bottom / kShareOfHeight, std::min(size.cx, client.right),
                    client.bottom};
    FillRect(dc, &line, Brush(CreateSolidBrush(GetTextColor(dc))).get());
}

void paint(HWND label, TextFlow flow)
{
    const Painting painting(label);
    RECT client{};
    GetClientRect(label, &client);
    paint_gradient(painting.dc(), client, background_behind(label).whole);

    wchar_t text[kLongestText + 1] = {};
    const int length = GetWindowTextW(label, text, kLongestText + 1);
    const Selected selected(painting.dc(), reinterpret_cast<HFONT>(SendMessageW(label, WM_GETFONT, 0, 0)));
    // The colour of the text is the parent's to say, as for every other static.
    SendMessageW(GetAncestor(label, GA_PARENT), WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(painting.dc()),
                 reinterpret_cast<LPARAM>(label));
    SetBkMode(painting.dc(), TRANSPARENT);
    const UINT form = flow == TextFlow::wrapped ? DT_WORDBREAK : DT_SINGLELINE | DT_VCENTER;
    DrawTextW(painting.dc(), text, length, &client, form | DT_NOPREFIX);
    if (shows_focus(label)) paint_focus(painting.dc(), client, text, length);
}

// The static draws a new text at once, over the old one and without a background.
LRESULT set_text(HWND label, WPARAM wparam, LPARAM lparam)
{
    const LRESULT answer = DefSubclassProc(label, WM_SETTEXT, wparam, lparam);
    InvalidateRect(label, nullptr, FALSE);
    return answer;
}

LRESULT CALLBACK paint_itself(HWND label, UINT message, WPARAM wparam, LPARAM lparam, UINT_PTR id, DWORD_PTR flow)
{
    switch (message) {
    case WM_ERASEBKGND:
        return 1;
    case WM_PAINT:
        paint(label, static_cast<TextFlow>(flow));
        return 0;
    case WM_SETTEXT:
        return set_text(label, wparam, lparam);
    case WM_NCDESTROY:
        RemoveWindowSubclass(label, paint_itself, id);
        break;
    default:
        break;
    }
    return DefSubclassProc(label, message, wparam, lparam);
}

}  // namespace

void make_self_painting(HWND label, TextFlow flow)
{
    SetWindowSubclass(label, paint_itself, 0, static_cast<DWORD_PTR>(flow));
}
