#include "ui/windows/labels.h"

#include "ui/windows/keyboard.h"
#include "ui/windows/screen_reader.h"
#include "ui/windows/theme.h"

#include <algorithm>
#include <array>

namespace {

constexpr int kLongestPaintedText = 640;

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

    wchar_t text[kLongestPaintedText + 1] = {};
    const int length = GetWindowTextW(label, text, kLongestPaintedText + 1);
    const Selected selected(painting.dc(), reinterpret_cast<HFONT>(SendMessageW(label, WM_GETFONT, 0, 0)));
    // The colour of the text is the parent's to say, as for every other static.
    SendMessageW(GetAncestor(label, GA_PARENT), WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(painting.dc()),
                 reinterpret_cast<LPARAM>(label));
    SetBkMode(painting.dc(), TRANSPARENT);
    const UINT form = flow == TextFlow::wrapped ? DT_WORDBREAK : DT_SINGLELINE | DT_VCENTER;
    DrawTextW(painting.dc(), text, length, &client, form | DT_NOPREFIX);
    if (shows_focus(label)) paint_focus(painting.dc(), client, text, length);
}

// Windows' static draws a new window text at once, over the old one and without a background.
LRESULT set_text(HWND label, WPARAM wparam, LPARAM lparam)
{
    const LRESULT answer = DefSubclassProc(label, WM_SETTEXT, wparam, lparam);
    InvalidateRect(label, nullptr, FALSE);
    return answer;
}

// Subclass procedure of a self-painting label.
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

bool is_press_key(WPARAM key)
{
    return key == VK_RETURN || key == VK_SPACE;
}

// Subclass procedure of a hyperlink.
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

constexpr LPARAM kLongestTime = 0x7FFF;  // milliseconds that a tip stays
constexpr int kLongestTip = 1024;        // characters

TOOLINFOW tool_of(HWND label)
{
    const HWND window = GetAncestor(label, GA_PARENT);
    TOOLINFOW tool{};
    tool.cbSize = sizeof tool;
    tool.uFlags = TTF_SUBCLASS;
    tool.hwnd = window;
    tool.uId = static_cast<UINT_PTR>(GetDlgCtrlID(label));
    GetWindowRect(label, &tool.rect);
    MapWindowPoints(HWND_DESKTOP, window, reinterpret_cast<POINT*>(&tool.rect), 2);
    tool.lpszText = LPSTR_TEXTCALLBACKW;
    return tool;
}

bool is_cut_off(HWND label, const wchar_t* text, int length, TextFlow flow)
{
    RECT client{};
    GetClientRect(label, &client);
    RECT needed = client;
    const UINT form = flow == TextFlow::wrapped ? DT_WORDBREAK : DT_SINGLELINE;
    HDC dc = GetDC(label);
    {
        const Selected selected(dc, reinterpret_cast<HFONT>(SendMessageW(label, WM_GETFONT, 0, 0)));
        DrawTextW(dc, text, length, &needed, form | DT_NOPREFIX | DT_CALCRECT);
    }
    ReleaseDC(label, dc);
    // A line may be a little higher than its label, whose letters are all seen nevertheless.
    return needed.right > client.right || (flow == TextFlow::wrapped && needed.bottom > client.bottom);
}

}  // namespace

void make_self_painting(HWND label, TextFlow flow)
{
    SetWindowSubclass(label, paint_itself, 0, static_cast<DWORD_PTR>(flow));
}

void make_link(HWND label)
{
    SetWindowSubclass(label, follow_keys, 0, 0);
    SetWindowLongPtrW(label, GWL_STYLE, GetWindowLongPtrW(label, GWL_STYLE) | WS_TABSTOP);
}

HWND create_tips(HWND window)
{
    const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_BAR_CLASSES};
    InitCommonControlsEx(&classes);
    const HWND tips = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX,
                                      0, 0, 0, 0, window, nullptr, GetModuleHandleW(nullptr), nullptr);
    SendMessageW(tips, TTM_SETDELAYTIME, TTDT_AUTOPOP, kLongestTime);
    return tips;
}

void add_tip(HWND tips, HWND label)
{
    const TOOLINFOW tool = tool_of(label);
    SendMessageW(tips, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

void move_tip(HWND tips, HWND label)
{
    const TOOLINFOW tool = tool_of(label);
    SendMessageW(tips, TTM_NEWTOOLRECTW, 0, reinterpret_cast<LPARAM>(&tool));
}

void answer_tip(NMTTDISPINFOW& question, HWND label, TextFlow flow)
{
    static std::array<wchar_t, kLongestTip + 1> text;  // Windows reads it after the answer
    const int length = GetWindowTextW(label, text.data(), static_cast<int>(text.size()));
    if (!is_cut_off(label, text.data(), length, flow)) text[0] = L'\0';
    question.lpszText = text.data();

    // With a width the tip wraps.
    RECT client{};
    GetClientRect(label, &client);
    SendMessageW(question.hdr.hwndFrom, TTM_SETMAXTIPWIDTH, 0, client.right);
}
