#include "ui/palette.h"

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

ButtonColours own_colours(ButtonState state, Colour behind)
{
    return {button_face(state, behind), state.hot || state.pressed ? kBorderActive : kBorder,
            state.disabled ? kButtonTextDisabled : kButtonText};
}

ButtonColours flat(Colour face, Colour ink)
{
    return {{face, face}, ink, ink};
}

ButtonColours contrasting_colours(ButtonState state, const SystemColours& system)
{
    if (state.disabled) return flat(system.button, system.grey_text);
    if (!state.hot && !state.pressed) return flat(system.button, system.button_text);
    return flat(system.highlight, system.highlight_text);
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

Palette high_contrast_palette(const SystemColours& system)
{
    Palette palette;
    palette.background = {system.window, system.window};
    palette.card = palette.field = system.window;
    palette.title = palette.title_rule = palette.subtitle = palette.plain_text = system.window_text;
    palette.card_outline = palette.card_text = palette.card_note = palette.card_caption = system.window_text;
    palette.field_text = system.window_text;
    palette.link = system.link;
    palette.frame = std::nullopt;
    palette.high_contrast = system;
    return palette;
}

ButtonColours button_colours(const Palette& palette, ButtonState state, Colour behind)
{
    if (palette.high_contrast) return contrasting_colours(state, *palette.high_contrast);
    return own_colours(state, behind);
}
