#include "ui/palette.h"

#include <gmock/gmock.h>

#include <array>

namespace {

constexpr Colour kBlack{0, 0, 0};

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

TEST(Mix, AtZeroIsTheFirstColourAndAtFullTheSecond)
{
    EXPECT_EQ(mix(kBackgroundTop, kBackgroundBottom, 0), kBackgroundTop);
    EXPECT_EQ(mix(kBackgroundTop, kBackgroundBottom, 255), kBackgroundBottom);
}

TEST(Mix, TruncatesTowardZeroInEachChannel)
{
    // 198 * 154 + 36 * 101 = 34128 = 133.8 * 255; 202 * 154 + 18 * 101 = 32926 = 129.1 * 255;
    // 216 * 154 + 62 * 101 = 39526 = 155.003 * 255.
    EXPECT_EQ(mix(kBackgroundTop, kBackgroundBottom, 101), (Colour{133, 129, 155}));
    EXPECT_EQ(mix(kBlack, Colour{1, 254, 255}, 254), (Colour{0, 253, 254}));
}

TEST(Mix, StaysWithinAByteBeyondTheFullMix)
{
    EXPECT_EQ(mix(kBlack, kWhite, 300), kWhite);
    EXPECT_EQ(mix(kWhite, kBlack, 300), kBlack);
}

TEST(BackgroundSample, RunsFromTheTopColourToTheBottomColour)
{
    EXPECT_EQ(background_sample(0, 600), kBackgroundTop);
    EXPECT_EQ(background_sample(599, 600), kBackgroundBottom);
    EXPECT_EQ(background_sample(300, 600), mix(kBackgroundTop, kBackgroundBottom, 127));  // 300 * 255 / 599 = 127.7
    EXPECT_EQ(background_sample(0, 2), kBackgroundTop);
    EXPECT_EQ(background_sample(1, 2), kBackgroundBottom);
}

TEST(BackgroundSample, OutsideTheWindowIsTheNearestEnd)
{
    EXPECT_EQ(background_sample(-40, 600), kBackgroundTop);
    EXPECT_EQ(background_sample(5000, 600), kBackgroundBottom);
    EXPECT_EQ(background_sample(2147483647, 600), kBackgroundBottom);
}

TEST(BackgroundSample, OfAWindowLessThanTwoPixelsHighIsTheBottomColourEverywhere)
{
    for (const int y : {-1, 0, 1, 300}) {
        EXPECT_EQ(background_sample(y, 1), kBackgroundBottom);
        EXPECT_EQ(background_sample(y, 0), kBackgroundBottom);
        EXPECT_EQ(background_sample(y, -5), kBackgroundBottom);
    }
}

TEST(GradientRow, RunsFromTheStartColourToTheEndColour)
{
    const Gradient face{kFaceTop, kFaceBottom};
    EXPECT_EQ(gradient_row(face, 0, 36), kFaceTop);
    EXPECT_EQ(gradient_row(face, 10, 36), mix(kFaceTop, kFaceBottom, 72));  // 10 * 255 / 35 = 72.9
    EXPECT_EQ(gradient_row(face, 35, 36), kFaceBottom);
}

TEST(GradientRow, OfASingleRowIsTheStartColour)
{
    EXPECT_EQ(gradient_row({kFaceTop, kFaceBottom}, 0, 1), kFaceTop);
}

TEST(ButtonFace, AtRestIsThePlainFace)
{
    EXPECT_EQ(button_face({}, kBlack), (Gradient{kFaceTop, kFaceBottom}));
}

TEST(ButtonFace, UnderTheMouseIsLighterAndMoreSoAtTheTop)
{
    EXPECT_EQ(button_face({.hot = true}, kBlack), (Gradient{mix(kFaceTop, kWhite, 50), mix(kFaceBottom, kWhite, 30)}));
}

TEST(ButtonFace, PressedHasTheDarkerColourAtTheTop)
{
    EXPECT_EQ(button_face({.pressed = true}, kBlack), (Gradient{kFaceBottom, kFaceTop}));
    EXPECT_EQ(button_face({.hot = true, .pressed = true}, kBlack),
              (Gradient{mix(kFaceBottom, kWhite, 30), mix(kFaceTop, kWhite, 50)}));
}

TEST(ButtonFace, DisabledAndHotIsLightenedFirstAndThenDimmedTowardsTheBackground)
{
    const Colour behind{40, 50, 60};
    const Gradient face = button_face({.hot = true, .disabled = true}, behind);
    EXPECT_EQ(face.start, mix(mix(kFaceTop, kWhite, 50), behind, 140));
    EXPECT_EQ(face.end, mix(mix(kFaceBottom, kWhite, 30), behind, 140));
    EXPECT_EQ(button_face({.disabled = true}, behind).start, mix(kFaceTop, behind, 140));
}

TEST(Theme, HasTheProgramsColours)
{
    EXPECT_EQ(kBackgroundTop, (Colour{198, 202, 216}));
    EXPECT_EQ(kBackgroundBottom, (Colour{36, 18, 62}));
    EXPECT_EQ(kFaceTop, (Colour{226, 224, 236}));
    EXPECT_EQ(kFaceBottom, (Colour{132, 96, 186}));
    EXPECT_EQ(kBorder, (Colour{120, 100, 160}));
    EXPECT_EQ(kBorderActive, (Colour{92, 48, 150}));
    EXPECT_EQ(kButtonText, (Colour{32, 16, 54}));
    EXPECT_EQ(kButtonTextDisabled, (Colour{120, 110, 140}));
    EXPECT_EQ(kWhite, (Colour{255, 255, 255}));
    EXPECT_EQ(kLightText, (Colour{244, 240, 250}));
    EXPECT_EQ(kCard, (Colour{54, 38, 88}));
    EXPECT_EQ(kCardOutline, (Colour{198, 190, 220}));
    EXPECT_EQ(kCaptionText, (Colour{186, 176, 206}));
    EXPECT_EQ(kNoteText, (Colour{214, 206, 236}));
    EXPECT_EQ(kEditBackground, (Colour{24, 16, 40}));
    EXPECT_EQ(kTitleText, (Colour{32, 16, 54}));
    EXPECT_EQ(kTitleRule, (Colour{92, 48, 150}));
    EXPECT_EQ(kSubtitleText, (Colour{72, 48, 110}));
    EXPECT_EQ(kFrameCaption, (Colour{168, 164, 188}));
    EXPECT_EQ(kFrameBorder, (Colour{92, 64, 140}));
    EXPECT_EQ(kFrameText, (Colour{32, 16, 54}));
}

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
