// Paints the drawn buttons. The corners outside the rounded face show the window's gradient, so that nothing tells
// where a button ends and its parent begins.
#include "ui/button_pictures.h"
#include "ui/geometry.h"
#include "ui/windows/drawn_button.h"
#include "ui/windows/keyboard.h"
#include "ui/windows/theme.h"

namespace {

constexpr int kCorner = 12;
constexpr int kFocusInset = 3;  // of the ring that shows the focus, from the edge of the button
constexpr int kFocusStroke = 2;
constexpr int kPictureStroke = 2;  // pixels, whatever the DPI
constexpr int kLongestLabel = 128;

ButtonState state_of(const DRAWITEMSTRUCT& item)
{
    return {GetPropW(item.hwndItem, kHotProperty) != nullptr, (item.itemState & ODS_SELECTED) != 0,
            (item.itemState & ODS_DISABLED) != 0};
}

void paint_behind(const DRAWITEMSTRUCT& item, const BackgroundBehind& behind)
{
    FillRect(item.hDC, &item.rcItem, solid_brush(behind.middle).get());
    RECT grown = item.rcItem;
    ++grown.right;
    ++grown.bottom;
    paint_gradient(item.hDC, grown, behind.whole);
}

void paint_face(HDC dc, const RECT& place, int corner, const Gradient& face)
{
    const Region rounded(CreateRoundRectRgn(place.left, place.top, place.right + 1, place.bottom + 1, corner, corner));
    const Clipped clipped(dc, rounded);
    const int rows = place.bottom - place.top;
    for (int row = 0; row < rows; ++row) {
        const Pen pen = thin_pen(gradient_row(face, row, rows));
        const Selected selected(dc, pen.get());
        MoveToEx(dc, place.left, place.top + row, nullptr);
        LineTo(dc, place.right, place.top + row);
    }
}

void paint_outline(HDC dc, const RECT& place, int corner, Colour colour)
{
    const Pen pen = thin_pen(colour);
    const Selected selected_pen(dc, pen.get());
    const Selected selected_brush(dc, GetStockObject(HOLLOW_BRUSH));
    RoundRect(dc, place.left, place.top, place.right - 1, place.bottom - 1, corner, corner);
}

// A ring inside the outline.
void paint_focus(HDC dc, const RECT& place, unsigned dpi, Colour colour)
{
    const int inset = scaled(kFocusInset, dpi);
    const int corner = scaled(kCorner - kFocusInset, dpi);
    const Pen pen(CreatePen(PS_INSIDEFRAME, scaled(kFocusStroke, dpi), colorref(colour)));
    const Selected selected_pen(dc, pen.get());
    const Selected selected_brush(dc, GetStockObject(HOLLOW_BRUSH));
    RoundRect(dc, place.left + inset, place.top + inset, place.right - inset, place.bottom - inset, corner, corner);
}

void paint_label(const DRAWITEMSTRUCT& item, const ButtonState& state, Colour colour, HFONT font)
{
    wchar_t label[kLongestLabel + 1] = {};
    const int length = GetWindowTextW(item.hwndItem, label, kLongestLabel + 1);
    RECT place = item.rcItem;
    if (state.pressed) OffsetRect(&place, 1, 1);

    const Selected selected(item.hDC, font);
    SetTextColor(item.hDC, colorref(colour));
    SetBkMode(item.hDC, TRANSPARENT);
    DrawTextW(item.hDC, label, length, &place, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
}

Pen stroke(Colour colour)
{
    return Pen(CreatePen(PS_SOLID, kPictureStroke, colorref(colour)));
}

void paint_ellipse(HDC dc, const Rect& box, HGDIOBJ brush)
{
    const Selected selected(dc, brush);
    Ellipse(dc, box.x, box.y, box.right(), box.bottom());
}

void paint_line(HDC dc, const Line& line)
{
    MoveToEx(dc, line.from.x, line.from.y, nullptr);
    LineTo(dc, line.to.x, line.to.y);
}

void paint_gear(HDC dc, const Gear& gear, Colour colour)
{
    const Pen pen = stroke(colour);
    const Selected selected(dc, pen.get());
    paint_ellipse(dc, gear.ring, GetStockObject(HOLLOW_BRUSH));
    for (const Line& spoke : gear.spokes)
        paint_line(dc, spoke);
}

void paint_eye(HDC dc, const Eye& eye, Colour colour)
{
    const Pen pen = stroke(colour);
    const Brush brush = solid_brush(colour);
    const Selected selected(dc, pen.get());
    paint_ellipse(dc, eye.outline, GetStockObject(HOLLOW_BRUSH));
    paint_ellipse(dc, eye.pupil, brush.get());
    if (eye.slash) paint_line(dc, *eye.slash);
}

void paint_content(const DRAWITEMSTRUCT& item, const ButtonState& state, Colour colour, const ButtonLook& look)
{
    const Rect place = from_windows(item.rcItem);
    switch (look.picture) {
    case Picture::none:
        return paint_label(item, state, colour, look.font);
    case Picture::gear:
        return paint_gear(item.hDC, gear_on(place, look.dpi, state.pressed), colour);
    case Picture::open_eye:
    case Picture::struck_eye:
        const bool is_struck = look.picture == Picture::struck_eye;
        return paint_eye(item.hDC, eye_on(place, look.dpi, state.pressed, is_struck), colour);
    }
}

}  // namespace

void paint_drawn_button(const DRAWITEMSTRUCT& item, const ButtonLook& look)
{
    const ButtonState state = state_of(item);
    const BackgroundBehind behind = background_behind(item.hwndItem);
    const ButtonColours colours = button_colours(users_palette(), state, behind.middle);
    const int corner = scaled(kCorner, look.dpi);
    paint_behind(item, behind);
    paint_face(item.hDC, item.rcItem, corner, colours.face);
    paint_outline(item.hDC, item.rcItem, corner, colours.outline);
    if (shows_focus(item.hwndItem)) paint_focus(item.hDC, item.rcItem, look.dpi, colours.ink);
    paint_content(item, state, colours.ink, look);
}
