// Where everything in the main window stands: arithmetic alone, so that it can be checked with numbers.
#pragma once

#include "ui/geometry.h"

struct MainLayout {
    // The header: what is painted, then its buttons.
    Rect title;
    Rect title_rule;  // one pixel high
    Rect subtitle;
    Rect connect;
    Rect unbind;
    Rect settings;

    Rect wallet_card;
    Rect house_paymail_caption;
    Rect house_paymail;
    Rect payment_address_caption;
    Rect payment_address;

    Rect name_card;
    Rect name_caption;
    Rect name_field;
    Rect name_preview;
    Rect name_hint;
    Rect kept_names;

    Rect install;
    Rect publish;
    Rect remove;

    Rect status;
    Rect close;
    Rect version;
    int card_corner = 0;  // diameter of a card's round corners

    bool operator==(const MainLayout&) const = default;
};

// For a client area of `client_width` pixels at `dpi`. The layout grows from the top, so the height does not matter.
MainLayout main_layout(int client_width, unsigned dpi);

Size start_client_size(unsigned dpi);     // of the client area
Size smallest_window_size(unsigned dpi);  // of the window with its frame
