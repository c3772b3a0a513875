// The colours of the program's windows, each named after its use. There are two sets: the program's own, and one made
// of the system's colours, for users who have asked Windows for high contrast.
#pragma once

#include "ui/colour.h"

#include <optional>

// Those of the system's colours that go together: a text is legible on the colour that stands before it.
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
