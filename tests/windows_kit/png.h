// Pictures as PNG files.
#pragma once

#include "kit/windows/picture.h"

#include <string>

// The bytes of the file; empty when Windows cannot make it.
std::string png_of(const Picture& picture);
