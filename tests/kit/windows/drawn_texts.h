// The texts that the program draws, recorded on their way to Windows.
#pragma once

#include "ui/geometry.h"

#include <windows.h>

#include <string>
#include <vector>

struct DrawnText {
    std::wstring text;
    Rect place;
    UINT form = 0;
    COLORREF colour = 0;
    int background_mode = 0;
    LOGFONTW font{};
};

// What `paint` draws, in its order.
template <typename Paint>
std::vector<DrawnText> drawn_texts(Paint paint);

void start_recording();
std::vector<DrawnText> stop_recording();

template <typename Paint>
std::vector<DrawnText> drawn_texts(Paint paint)
{
    start_recording();
    paint();
    return stop_recording();
}

// The one among them that reads `text`; one of an empty text when there is none.
DrawnText find_text(const std::vector<DrawnText>& drawn, const std::wstring& text);

LOGFONTW description(HGDIOBJ font);
