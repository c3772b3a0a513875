// Draws the pictures on buttons.
#pragma once

#include "ui/eye.h"
#include "ui/gdi.h"
#include "ui/gear.h"

void paint_gear(HDC dc, const Gear& gear, Colour colour);
void paint_eye(HDC dc, const Eye& eye, Colour colour);
