#include "ui/palette.h"

#include <gmock/gmock.h>

#include <array>

namespace {

// A dark scheme, whose every colour differs from the others and from the program's own.
constexpr SystemColours kSystem{{1, 1, 1},     {250, 250, 250}, {90, 160, 255}, {20, 20, 20},
                                {240, 240, 0}, {0, 200, 0},     {0, 100, 200},  {255, 255, 255}};
constexpr Colour kBehind{80, 60, 100};

constexpr std::array<ButtonState, 8> kStates = {{{false, false, false},
                                                 {true, false, false},
                                                 {false, true, false},
                                                 {true, true, false},
                                                 {false, false, true},
                                                 {true, false, true},
                                                 {false, true, true},
                                                 {true, true, true}}};

ButtonColours flat(Colour face, Colour ink)
{
    return {{face, face}, ink, ink};
}

}  // namespace

TEST(OwnPalette, HasTheProgramsColours)
{
    const Palette own;
    EXPECT_EQ(own.background, (Gradient{{198, 202, 216}, {36, 18, 62}}));
    EXPECT_EQ(own.title, (Colour{32, 16, 54}));
    EXPECT_EQ(own.title_rule, (Colour{92, 48, 150}));
    EXPECT_EQ(own.subtitle, (Colour{72, 48, 110}));
    EXPECT_EQ(own.plain_text, (Colour{244, 240, 250}));
    EXPECT_EQ(own.link, (Colour{176, 32, 64}));
    EXPECT_EQ(own.card, (Colour{54, 38, 88}));
    EXPECT_EQ(own.card_outline, (Colour{198, 190, 220}));
    EXPECT_EQ(own.card_text, (Colour{244, 240, 250}));
    EXPECT_EQ(own.card_note, (Colour{214, 206, 236}));
    EXPECT_EQ(own.card_caption, (Colour{186, 176, 206}));
    EXPECT_EQ(own.field, (Colour{24, 16, 40}));
    EXPECT_EQ(own.field_text, (Colour{244, 240, 250}));
    EXPECT_EQ(own.frame, (FrameColours{{168, 164, 188}, {92, 64, 140}, {32, 16, 54}}));
}

TEST(OwnPalette, ItsButtonsHaveTheirFaces)
{
    for (const ButtonState& state : kStates) {
        const ButtonColours colours = button_colours(Palette(), state, kBehind);
        EXPECT_EQ(colours.face, button_face(state, kBehind));
        EXPECT_EQ(colours.outline, state.hot || state.pressed ? (Colour{92, 48, 150}) : (Colour{120, 100, 160}));
        EXPECT_EQ(colours.ink, state.disabled ? (Colour{120, 110, 140}) : (Colour{32, 16, 54}));
    }
}

TEST(HighContrastPalette, WritesInTheSystemsTextColourOnItsWindowColour)
{
    const Palette palette = high_contrast_palette(kSystem);
    EXPECT_EQ(palette.background, (Gradient{kSystem.window, kSystem.window}));
    EXPECT_EQ(palette.card, kSystem.window);
    EXPECT_EQ(palette.field, kSystem.window);
    for (const Colour text :
         {palette.title, palette.title_rule, palette.subtitle, palette.plain_text, palette.card_outline,
          palette.card_text, palette.card_note, palette.card_caption, palette.field_text})
        EXPECT_EQ(text, kSystem.window_text);
    EXPECT_EQ(palette.link, kSystem.link);
}

TEST(HighContrastPalette, LeavesTheFrameToWindows)
{
    EXPECT_EQ(high_contrast_palette(kSystem).frame, std::nullopt);
}

TEST(HighContrastPalette, ItsButtonsAreFlatAndOfTheSystemsColours)
{
    const Palette palette = high_contrast_palette(kSystem);
    const auto colours = [&](ButtonState state) { return button_colours(palette, state, kBehind); };
    EXPECT_EQ(colours({}), flat(kSystem.button, kSystem.button_text));
    EXPECT_EQ(colours({.hot = true}), flat(kSystem.highlight, kSystem.highlight_text));
    EXPECT_EQ(colours({.pressed = true}), flat(kSystem.highlight, kSystem.highlight_text));
    EXPECT_EQ(colours({.disabled = true}), flat(kSystem.button, kSystem.grey_text));
    EXPECT_EQ(colours({.hot = true, .disabled = true}), flat(kSystem.button, kSystem.grey_text));
}

TEST(BackgroundSample, RunsThroughTheGradientThatItIsGiven)
{
    const Gradient gradient{{10, 20, 30}, {110, 120, 130}};
    EXPECT_EQ(background_sample(0, 256, gradient), gradient.start);
    EXPECT_EQ(background_sample(255, 256, gradient), gradient.end);
    EXPECT_EQ(background_sample(7, 1, gradient), gradient.end);
}
