// The program's buttons: owner-drawn, softly shaded, with a hand cursor and a lighter face under the mouse.
#pragma once

#include "ui/geometry.h"
#include "ui/windows/gdi.h"

// Window property of a button that the mouse is over.
inline constexpr wchar_t kHotProperty[] = L"payname.hot";

// A visible child button. Null when Windows refuses.
HWND create_drawn_button(HWND parent, int id, const wchar_t* label, const Rect& place);

// What stands on a button in place of its label.
enum class Picture { none, gear, open_eye, struck_eye };

struct ButtonLook {
    unsigned dpi = 0;
    HFONT font = nullptr;  // the body font of that DPI
    Picture picture = Picture::none;
};

// The answer to WM_DRAWITEM for a button made above.
void paint_drawn_button(const DRAWITEMSTRUCT& item, const ButtonLook& look);
