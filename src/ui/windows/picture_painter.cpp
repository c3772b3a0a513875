#include "ui/windows/picture_painter.h"

namespace {

constexpr int kStroke = 2;  // pixels, whatever the DPI

Pen stroke(Colour colour)
{
    return Pen(CreatePen(PS_SOLID, kStroke, colorref(colour)));
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

}  // namespace

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
