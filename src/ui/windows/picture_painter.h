// Draws the pictures on buttons.
#pragma once

#include "ui/eye.h"
#include "ui/gear.h"
#include "ui/windows/gdi.h"

void paint_gear(HDC dc, const Gear& gear, Colour colour);
void paint_eye(HDC dc, const Eye& eye, Colour colour);
