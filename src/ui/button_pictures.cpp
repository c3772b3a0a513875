#include "ui/button_pictures.h"

#include <numbers>

namespace {

// The middle of the picture; that of a pressed button sits one pixel further right and down.
Point picture_centre(const Rect& button, bool is_pressed)
{
    const Point centre = button.centre();
    return is_pressed ? Point{centre.x + 1, centre.y + 1} : centre;
}

// The box whose ellipse reaches from `centre` as far as these radii to every side.
Rect ellipse_box(Point centre, int horizontal_radius, int vertical_radius)
{
    return {centre.x - horizontal_radius, centre.y - vertical_radius, 2 * horizontal_radius + 1,
            2 * vertical_radius + 1};
}

constexpr int kGearInnerRadius = 5;
constexpr int kGearOuterRadius = 10;

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

constexpr int kEyeHalfWidth = 9;
constexpr int kEyeHalfHeight = 6;
constexpr int kPupilRadius = 3;

}  // namespace

Gear gear_on(const Rect& button, unsigned dpi, bool is_pressed)
{
    const Point centre = picture_centre(button, is_pressed);
    const int inner = scaled(kGearInnerRadius, dpi);
    const int outer = scaled(kGearOuterRadius, dpi);
    Gear gear{ellipse_box(centre, inner, inner), {}};
    for (std::size_t i = 0; i < gear.spokes.size(); ++i)
        gear.spokes[i] = {point_at(centre, inner, kDirections[i]), point_at(centre, outer, kDirections[i])};
    return gear;
}

Eye eye_on(const Rect& button, unsigned dpi, bool is_pressed, bool password_is_hidden)
{
    const Point centre = picture_centre(button, is_pressed);
    const int half_width = scaled(kEyeHalfWidth, dpi);
    const int half_height = scaled(kEyeHalfHeight, dpi);
    const int pupil = scaled(kPupilRadius, dpi);
    Eye eye{ellipse_box(centre, half_width, half_height), ellipse_box(centre, pupil, pupil), std::nullopt};
    if (password_is_hidden) {
        eye.slash =
            Line{{centre.x - half_width, centre.y + half_height}, {centre.x + half_width, centre.y - half_height}};
    }
    return eye;
}
