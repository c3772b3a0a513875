#include "ui/gear.h"

#include "ui/dpi.h"
#include "ui/picture_geometry.h"

#include <numbers>

namespace {

constexpr int kInnerRadius = 5;
constexpr int kOuterRadius = 10;

struct Direction {
    double x = 0;
    double y = 0;
};

// The cosine and the sine of every eighth of a turn, from the right by way of the bottom.
constexpr double kSlope = std::numbers::sqrt2 / 2;
constexpr Direction kDirections[] = {{1, 0},  {kSlope, kSlope},   {0, 1},  {-kSlope, kSlope},
                                     {-1, 0}, {-kSlope, -kSlope}, {0, -1}, {kSlope, -kSlope}};

// Each offset is cut off toward the centre, so that the gear is the same on all sides.
Point point_at(Point centre, int radius, Direction direction)
{
    return {centre.x + static_cast<int>(radius * direction.x), centre.y + static_cast<int>(radius * direction.y)};
}

}  // namespace

Gear gear_on(const Rect& button, unsigned dpi, bool is_pressed)
{
    const Point centre = picture_centre(button, is_pressed);
    const int inner = scaled(kInnerRadius, dpi);
    const int outer = scaled(kOuterRadius, dpi);
    Gear gear{ellipse_box(centre, inner, inner), {}};
    for (std::size_t i = 0; i < gear.spokes.size(); ++i)
        gear.spokes[i] = {point_at(centre, inner, kDirections[i]), point_at(centre, outer, kDirections[i])};
    return gear;
}
