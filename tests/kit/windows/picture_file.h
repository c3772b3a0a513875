// Pictures that a test leaves for people to look at.
#pragma once

#include "kit/windows/picture.h"

#include <string>

// build/pictures/NAME.bmp
void save_picture(const Picture& picture, const std::string& name);
