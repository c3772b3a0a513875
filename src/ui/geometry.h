// Places in a window, in pixels.
#pragma once

struct Size {
    int width = 0;
    int height = 0;

    bool operator==(const Size&) const = default;
};

struct Point {
    int x = 0;
    int y = 0;

    bool operator==(const Point&) const = default;
};

struct Line {
    Point from;
    Point to;

    bool operator==(const Line&) const = default;
};

struct Rect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    int right() const { return x + width; }
    int bottom() const { return y + height; }
    int middle() const { return y + height / 2; }
    Point centre() const { return {x + width / 2, middle()}; }
    bool operator==(const Rect&) const = default;
};
