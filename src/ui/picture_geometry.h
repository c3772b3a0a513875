// What the pictures on buttons have in common: where their middle is, and the box around an ellipse.
#pragma once

#include "ui/geometry.h"

// The middle of the picture; that of a pressed button sits one pixel further right and down.
inline Point picture_centre(const Rect& button, bool is_pressed)
{
    const Point centre = button.centre();
    return is_pressed ? Point{centre.x + 1, centre.y + 1} : centre;
}

// The box whose ellipse reaches from `centre` as far as these radii to every side.
inline Rect ellipse_box(Point centre, int horizontal_radius, int vertical_radius)
{
    return {centre.x - horizontal_radius, centre.y - vertical_radius, 2 * horizontal_radius + 1,
            2 * vertical_radius + 1};
}
