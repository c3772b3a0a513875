#include "ui/windows/tips.h"

#include <array>

namespace {

constexpr LPARAM kLongestTime = 0x7FFF;  // milliseconds that a tip stays
constexpr int kLongestText = 1024;       // characters

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
    static std::array<wchar_t, kLongestText + 1> text;  // Windows reads it after the answer
    const int length = GetWindowTextW(label, text.data(), static_cast<int>(text.size()));
    if (!is_cut_off(label, text.data(), length, flow)) text[0] = L'\0';
    question.lpszText = text.data();

    // With a width the tip wraps.
    RECT client{};
    GetClientRect(label, &client);
    SendMessageW(question.hdr.hwndFrom, TTM_SETMAXTIPWIDTH, 0, client.right);
}
