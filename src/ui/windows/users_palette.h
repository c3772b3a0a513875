// The palette that the user's Windows settings ask for. Belongs to the user-interface thread.
#pragma once

#include "ui/palette.h"

#include <windows.h>

// As last read; read for the first time when it is first asked for.
const Palette& users_palette();

void refresh_users_palette();

// Whether a window that gets this message should read the palette again, and paint itself anew.
bool tells_of_new_colours(UINT message);
