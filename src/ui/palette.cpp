#include "ui/palette.h"

namespace {

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
