// The controls of a window as a table, a row each: what they are and which fonts they show. Rows stand in the order of
// creation, which is also the order of the Tab key.
#pragma once

#include "ui/geometry.h"
#include "ui/windows/gdi.h"

#include <string>

// The three fonts of the program.
struct Fonts {
    Font body;
    Font small;
    Font title;
};

Fonts make_fonts(unsigned dpi);

enum class ControlKind {
    label,            // one line, with an ellipsis where it is cut off
    clickable_label,  // the same, for its window to give it SS_NOTIFY
    wrapped_label,
    hint,  // wrapped too, without WS_CLIPSIBLINGS
    button,
    field,  // one line to type into
    password_field,
};

// Which font a control shows: the one that it is made with, and the one that it gets when the DPI changes and the fonts
// are made anew. Null: it keeps the font that it has, which must then live on.
struct ControlFonts {
    Font Fonts::*at_creation = nullptr;
    Font Fonts::*after_dpi_change = nullptr;
};

inline constexpr ControlFonts kBodyText{&Fonts::body, &Fonts::body};
inline constexpr ControlFonts kSmallText{&Fonts::small, &Fonts::small};

// `Place` is how the window says where the control stands.
template <typename Place>
struct ControlRow {
    int id = 0;
    ControlKind kind = ControlKind::label;
    const wchar_t* text = nullptr;
    ControlFonts fonts;
    Place place{};
    bool starts_work = false;  // disabled while the program works for the user
};

// A visible child. Null when Windows refuses.
HWND create_control(HWND window, int id, ControlKind kind, const wchar_t* text, const Rect& place);

void set_font(HWND control, const Font& font);

// `place_of` says of a row where its control stands, in pixels.
template <typename Rows, typename PlaceOf>
void create_all(HWND window, const Rows& rows, const Fonts& fonts, PlaceOf place_of)
{
    for (const auto& row : rows)
        set_font(create_control(window, row.id, row.kind, row.text, place_of(row)), fonts.*row.fonts.at_creation);
}

// Hands out the fonts of another DPI.
template <typename Rows>
void change_fonts(HWND window, const Rows& rows, const Fonts& fonts)
{
    for (const auto& row : rows)
        if (row.fonts.after_dpi_change != nullptr)
            set_font(GetDlgItem(window, row.id), fonts.*row.fonts.after_dpi_change);
}

// What an empty field shows, also while it has the focus.
void set_cue(HWND field, const wchar_t* cue);

// The string that the user typed, as UTF-8, without white space at both ends; empty when there is no such control.
std::string control_text(HWND control);
