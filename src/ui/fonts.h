// The three fonts of the program.
#pragma once

#include "ui/gdi.h"

struct Fonts {
    Font body;
    Font small;
    Font title;
};

Fonts make_fonts(unsigned dpi);
