#include "ui/windows/control_table.h"

#include "platform/text_conversion.h"
#include "text/ascii.h"
#include "ui/windows/drawn_button.h"

#include <commctrl.h>

namespace {

constexpr DWORD kWrapped = WS_CLIPSIBLINGS | SS_NOPREFIX;

Font make_font(const wchar_t* face, BYTE family, int height, unsigned dpi)
{
    // A negative height asks for the height of the characters instead of the line.
    return Font(CreateFontW(-scaled(height, dpi), 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                            OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, CLEARTYPE_QUALITY,
                            static_cast<DWORD>(DEFAULT_PITCH | family), face));
}

// What Windows' own classes are asked for; only the text and the place differ within a kind.
struct Form {
    const wchar_t* window_class;
    DWORD style;
    DWORD extended_style;
};

constexpr Form static_form(DWORD style)
{
    return {L"STATIC", style, 0};
}

constexpr Form field_form(DWORD more_style)
{
    return {L"EDIT", WS_TABSTOP | ES_AUTOHSCROLL | more_style, WS_EX_CLIENTEDGE};
}

HWND create_child(HWND parent, int id, const Form& form, const wchar_t* text, const Rect& place)
{
    return CreateWindowExW(form.extended_style, form.window_class, text, WS_CHILD | WS_VISIBLE | form.style, place.x,
                           place.y, place.width, place.height, parent,
                           reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleW(nullptr), nullptr);
}

}  // namespace

Fonts make_fonts(unsigned dpi)
{
    return {make_font(L"Segoe UI", FF_SWISS, 16, dpi), make_font(L"Segoe UI", FF_SWISS, 14, dpi),
            make_font(L"Georgia", FF_ROMAN, 26, dpi)};
}

HWND create_control(HWND window, int id, ControlKind kind, const wchar_t* text, const Rect& place)
{
    switch (kind) {
    case ControlKind::label:
    case ControlKind::clickable_label:
        return create_child(window, id, static_form(kWrapped | SS_ENDELLIPSIS), text, place);
    case ControlKind::wrapped_label:
        return create_child(window, id, static_form(kWrapped), text, place);
    case ControlKind::hint:
        return create_child(window, id, static_form(SS_NOPREFIX), text, place);
    case ControlKind::button:
        return create_drawn_button(window, id, text, place);
    case ControlKind::field:
        return create_child(window, id, field_form(0), text, place);
    case ControlKind::password_field:
        return create_child(window, id, field_form(ES_PASSWORD), text, place);
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
