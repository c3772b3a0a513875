#include "ui/windows/labels.h"

#include "ui/windows/keyboard.h"
#include "ui/windows/theme.h"

#include <algorithm>
#include <array>

namespace {

constexpr int kLongestPaintedText = 640;

UINT form_of(TextFlow flow)
{
    return (flow == TextFlow::wrapped ? DT_WORDBREAK : DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS) | DT_NOPREFIX;
}

// A line under the text, in its colour, when the keyboard has been moved to a label that it can press.
void paint_focus(HDC dc, const RECT& client, const wchar_t* text, int length, TextFlow flow)
{
    RECT whole = client;
    DrawTextW(dc, text, length, &whole, form_of(flow) | DT_CALCRECT);
    constexpr int kShareOfLine = 9;
    TEXTMETRICW font{};
    GetTextMetricsW(dc, &font);
    const LONG height = (font.tmHeight + kShareOfLine - 1) / kShareOfLine;
    const LONG bottom = flow == TextFlow::wrapped ? std::min(whole.bottom + 1, client.bottom) : client.bottom;
    const RECT line{client.left, bottom - height, std::min(whole.right, client.right), bottom};
    FillRect(dc, &line, Brush(CreateSolidBrush(GetTextColor(dc))).get());
}

// The colour of the text and what is behind it are the parent's to say, as for every other static.
void paint_behind(HDC dc, HWND label, const RECT& client)
{
    const LRESULT answer = SendMessageW(GetAncestor(label, GA_PARENT), WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(dc),
                                        reinterpret_cast<LPARAM>(label));
    const auto brush = reinterpret_cast<HBRUSH>(answer);
    if (brush == GetStockObject(HOLLOW_BRUSH))
        paint_gradient(dc, client, background_behind(label).whole);
    else
        FillRect(dc, &client, brush);
    SetBkMode(dc, TRANSPARENT);
}

void paint(HWND label, TextFlow flow)
{
    const Painting painting(label);
    RECT client{};
    GetClientRect(label, &client);
    paint_behind(painting.dc(), label, client);

    wchar_t text[kLongestPaintedText + 1] = {};
    const int length = GetWindowTextW(label, text, kLongestPaintedText + 1);
    const Selected selected(painting.dc(), reinterpret_cast<HFONT>(SendMessageW(label, WM_GETFONT, 0, 0)));
    DrawTextW(painting.dc(), text, length, &client, form_of(flow));
    if (shows_focus(label)) paint_focus(painting.dc(), client, text, length, flow);
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

// Subclass procedure of a label that can be pressed.
LRESULT CALLBACK be_pressable(HWND label, UINT message, WPARAM wparam, LPARAM lparam, UINT_PTR id, DWORD_PTR kind)
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
        return answer_screen_reader(label, wparam, *reinterpret_cast<const AccessibleKind*>(kind));
    case WM_SETCURSOR:
        if (LOWORD(lparam) != HTCLIENT) break;
        SetCursor(LoadCursorW(nullptr, IDC_HAND));
        return TRUE;
    case WM_NCDESTROY:
        RemoveWindowSubclass(label, be_pressable, id);
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
    tool.lpszText = LPSTR_TEXTCALLBACKW;
    GetWindowRect(label, &tool.rect);
    MapWindowPoints(HWND_DESKTOP, window, reinterpret_cast<POINT*>(&tool.rect), 2);
    return tool;
}

// The tool of the same label while it takes the mouse itself.
TOOLINFOW own_tool_of(HWND label)
{
    TOOLINFOW tool = tool_of(label);
    tool.uFlags |= TTF_IDISHWND;
    tool.uId = reinterpret_cast<UINT_PTR>(label);
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

void set_pressable(HWND label, const AccessibleKind* kind)
{
    constexpr LONG_PTR kPressable = WS_TABSTOP | SS_NOTIFY;
    const LONG_PTR style = GetWindowLongPtrW(label, GWL_STYLE);
    if (kind != nullptr) {
        SetWindowSubclass(label, be_pressable, 0, reinterpret_cast<DWORD_PTR>(kind));
        SetWindowLongPtrW(label, GWL_STYLE, style | kPressable);
        return;
    }
    RemoveWindowSubclass(label, be_pressable, 0);
    SetWindowLongPtrW(label, GWL_STYLE, style & ~kPressable);
    // A window whose focus no key reaches hears no keys.
    const HWND window = GetAncestor(label, GA_PARENT);
    if (GetFocus() == label) SetFocus(GetNextDlgTabItem(window, label, FALSE));
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
    for (const TOOLINFOW& tool : {tool_of(label), own_tool_of(label)})
        SendMessageW(tips, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

void move_tip(HWND tips, HWND label)
{
    const TOOLINFOW tool = tool_of(label);
    SendMessageW(tips, TTM_NEWTOOLRECTW, 0, reinterpret_cast<LPARAM>(&tool));
}

HWND label_of_tip(const NMTTDISPINFOW& question)
{
    if ((question.uFlags & TTF_IDISHWND) != 0) return reinterpret_cast<HWND>(question.hdr.idFrom);
    return GetDlgItem(GetParent(question.hdr.hwndFrom), static_cast<int>(question.hdr.idFrom));
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
