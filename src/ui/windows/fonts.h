// The three fonts of the program.
#pragma once

#include "ui/windows/gdi.h"

struct Fonts {
    Font body;
    Font small;
    Font title;
};

Fonts make_fonts(unsigned dpi);
