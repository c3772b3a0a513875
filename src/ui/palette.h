// The program's colours: their arithmetic (mixing, the window's gradient, the face of a button), and the palettes that
// name each colour after its use. There are two palettes: the program's own, and one made of the system's colours, for
// users who have asked Windows for high contrast.
#pragma once

#include <cstdint>
#include <optional>

struct Colour {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;

    bool operator==(const Colour&) const = default;
};

inline constexpr Colour kBackgroundTop{198, 202, 216};
inline constexpr Colour kBackgroundBottom{36, 18, 62};
inline constexpr Colour kFaceTop{226, 224, 236};
inline constexpr Colour kFaceBottom{132, 96, 186};
inline constexpr Colour kBorder{120, 100, 160};
inline constexpr Colour kBorderActive{92, 48, 150};
inline constexpr Colour kButtonText{32, 16, 54};
inline constexpr Colour kButtonTextDisabled{120, 110, 140};
inline constexpr Colour kWhite{255, 255, 255};
inline constexpr Colour kLightText{244, 240, 250};
inline constexpr Colour kLinkText{176, 32, 64};
inline constexpr Colour kCard{54, 38, 88};
inline constexpr Colour kCardOutline{198, 190, 220};
inline constexpr Colour kCaptionText{186, 176, 206};
inline constexpr Colour kNoteText{214, 206, 236};
inline constexpr Colour kEditBackground{24, 16, 40};
inline constexpr Colour kTitleText{32, 16, 54};
inline constexpr Colour kTitleRule{92, 48, 150};
inline constexpr Colour kSubtitleText{72, 48, 110};
inline constexpr Colour kFrameCaption{168, 164, 188};
inline constexpr Colour kFrameBorder{92, 64, 140};
inline constexpr Colour kFrameText{32, 16, 54};

// A gradient from the first row to the last.
struct Gradient {
    Colour start;
    Colour end;

    bool operator==(const Gradient&) const = default;
};

// From `a` (t = 0) to `b` (t = 255), each channel truncated toward zero and kept within a byte.
Colour mix(Colour a, Colour b, int t);

// A window's gradient at the row `y` of a client area that is `client_height` rows high; the bottom colour when there
// are fewer than two rows.
Colour background_sample(int y, int client_height, const Gradient& background = {kBackgroundTop, kBackgroundBottom});

// The colour of row `row` of `rows`; a single row has the start colour.
Colour gradient_row(const Gradient& gradient, int row, int rows);

struct ButtonState {
    bool hot = false;
    bool pressed = false;
    bool disabled = false;
};

// The face of a button whose middle stands before the background colour `behind`.
Gradient button_face(ButtonState state, Colour behind);

// Those of the system's colours that go together: text of the one is legible on the one before it.
struct SystemColours {
    Colour window;
    Colour window_text;
    Colour link;  // on the window colour
    Colour button;
    Colour button_text;
    Colour grey_text;  // on the window and the button colour
    Colour highlight;
    Colour highlight_text;

    bool operator==(const SystemColours&) const = default;
};

struct FrameColours {
    Colour caption;
    Colour border;
    Colour text;

    bool operator==(const FrameColours&) const = default;
};

struct Palette {
    Gradient background{kBackgroundTop, kBackgroundBottom};
    Colour title = kTitleText;
    Colour title_rule = kTitleRule;
    Colour subtitle = kSubtitleText;
    Colour plain_text = kLightText;  // on the background
    Colour link = kLinkText;         // on the background

    Colour card = kCard;
    Colour card_outline = kCardOutline;
    Colour card_text = kLightText;
    Colour card_note = kNoteText;
    Colour card_caption = kCaptionText;

    Colour field = kEditBackground;
    Colour field_text = kLightText;

    // Empty: Windows chooses.
    std::optional<FrameColours> frame = FrameColours{kFrameCaption, kFrameBorder, kFrameText};

    // Buttons are flat and made of these; empty: they have the program's own faces.
    std::optional<SystemColours> high_contrast;

    bool operator==(const Palette&) const = default;
};

// The program's own palette is Palette(). This is the other one.
Palette high_contrast_palette(const SystemColours& system);

struct ButtonColours {
    Gradient face;
    Colour outline;
    Colour ink;  // of the label or the picture, and of the ring that shows the focus

    bool operator==(const ButtonColours&) const = default;
};

// Of a button whose middle stands before the background colour `behind`.
ButtonColours button_colours(const Palette& palette, ButtonState state, Colour behind);
