#include "ui/colour.h"

#include <algorithm>
#include <utility>

namespace {

constexpr int kFull = 255;  // of a channel, and of a mix
constexpr int kHotTop = 50;
constexpr int kHotBottom = 30;
constexpr int kDimmed = 140;

std::uint8_t mix_channel(int a, int b, int t)
{
    return static_cast<std::uint8_t>(std::clamp((a * (kFull - t) + b * t) / kFull, 0, kFull));
}

}  // namespace

Colour mix(Colour a, Colour b, int t)
{
    return {mix_channel(a.red, b.red, t), mix_channel(a.green, b.green, t), mix_channel(a.blue, b.blue, t)};
}

Colour background_sample(int y, int client_height, const Gradient& background)
{
    if (client_height < 2) return background.end;
    const std::int64_t t = static_cast<std::int64_t>(y) * kFull / (client_height - 1);
    return mix(background.start, background.end, static_cast<int>(std::clamp<std::int64_t>(t, 0, kFull)));
}

Colour gradient_row(const Gradient& gradient, int row, int rows)
{
    return rows <= 1 ? gradient.start : mix(gradient.start, gradient.end, row * kFull / (rows - 1));
}

Gradient button_face(ButtonState state, Colour behind)
{
    Gradient face{kFaceTop, kFaceBottom};
    if (state.hot) face = {mix(face.start, kWhite, kHotTop), mix(face.end, kWhite, kHotBottom)};
    if (state.pressed) std::swap(face.start, face.end);
    if (state.disabled) face = {mix(face.start, behind, kDimmed), mix(face.end, behind, kDimmed)};
    return face;
}
