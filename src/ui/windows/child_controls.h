// The plain controls of the program's windows.
#pragma once

#include "ui/windows/gdi.h"

inline constexpr DWORD kWrappedLabel = WS_CLIPSIBLINGS | SS_NOPREFIX;
inline constexpr DWORD kOneLineLabel = kWrappedLabel | SS_ENDELLIPSIS;

// Visible children of a provisional size; the layout places them. Null when Windows refuses.
HWND create_label(HWND parent, int id, const wchar_t* text, DWORD style);
HWND create_field(HWND parent, int id, const wchar_t* text, DWORD more_style = 0);  // one line to type into

// What an empty field shows, also while it has the focus.
void set_cue(HWND field, const wchar_t* cue);

void set_font(HWND control, const Font& font);
