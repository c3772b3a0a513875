#include "ui/windows/control_table.h"

#include "platform/text_conversion.h"
#include "text/ascii.h"
#include "ui/windows/drawn_button.h"

#include <commctrl.h>

namespace {

constexpr int kProvisionalSize = 10;
constexpr DWORD kWrapped = WS_CLIPSIBLINGS | SS_NOPREFIX;

Font make_font(const wchar_t* face, BYTE family, int height, unsigned dpi)
{
    // A negative height asks for the height of the characters instead of the line.
    return Font(CreateFontW(-scaled(height, dpi), 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                            OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, CLEARTYPE_QUALITY,
                            static_cast<DWORD>(DEFAULT_PITCH | family), face));
}

HWND create_child(HWND parent, int id, const wchar_t* window_class, const wchar_t* text, DWORD style,
                  DWORD extended_style)
{
    return CreateWindowExW(extended_style, window_class, text, WS_CHILD | WS_VISIBLE | style, 0, 0, kProvisionalSize,
                           kProvisionalSize, parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                           GetModuleHandleW(nullptr), nullptr);
}

HWND create_static(HWND parent, int id, const wchar_t* text, DWORD style)
{
    return create_child(parent, id, L"STATIC", text, style, 0);
}

HWND create_field(HWND parent, int id, const wchar_t* text, DWORD more_style)
{
    return create_child(parent, id, L"EDIT", text, WS_TABSTOP | ES_AUTOHSCROLL | more_style, WS_EX_CLIENTEDGE);
}

}  // namespace

Fonts make_fonts(unsigned dpi)
{
    return {make_font(L"Segoe UI", FF_SWISS, 16, dpi), make_font(L"Segoe UI", FF_SWISS, 14, dpi),
            make_font(L"Georgia", FF_ROMAN, 26, dpi)};
}

HWND create_control(HWND window, int id, ControlKind kind, const wchar_t* text)
{
    switch (kind) {
    case ControlKind::label:
    case ControlKind::clickable_label:
        return create_static(window, id, text, kWrapped | SS_ENDELLIPSIS);
    case ControlKind::wrapped_label:
        return create_static(window, id, text, kWrapped);
    case ControlKind::hint:
        return create_static(window, id, text, SS_NOPREFIX);
    case ControlKind::button:
        return create_drawn_button(window, id, text);
    case ControlKind::field:
        return create_field(window, id, text, 0);
    case ControlKind::password_field:
        return create_field(window, id, text, ES_PASSWORD);
    }
    return nullptr;
}

void set_font(HWND control, const Font& font)
{
    SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font.get()), TRUE);
}

void set_cue(HWND field, const wchar_t* cue)
{
    constexpr WPARAM kAlsoWhileFocused = TRUE;
    SendMessageW(field, EM_SETCUEBANNER, kAlsoWhileFocused, reinterpret_cast<LPARAM>(cue));
}

std::string control_text(HWND control)
{
    if (control == nullptr) return {};
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(control)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(control, text.data(), static_cast<int>(text.size()))));
    return std::string(trimmed(narrow(text)));
}
