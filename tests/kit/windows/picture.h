// The pixels of a window's client area, as they stand on the screen, and as a file for people to look at.
#pragma once

#include "ui/windows/gdi.h"

#include <string>
#include <vector>

class Picture {
public:
    explicit Picture(HWND window);

    int width() const { return m_size.width; }
    int height() const { return m_size.height; }
    Colour at(int x, int y) const;
    bool shows(Colour colour) const;  // anywhere
    bool operator==(const Picture&) const = default;

private:
    Size m_size;
    std::vector<std::uint32_t> m_pixels;  // from the top row down
};

// The same window after it has painted itself completely anew.
Picture repainted(HWND window);

// build/pictures/NAME.bmp
void save_picture(const Picture& picture, const std::string& name);
