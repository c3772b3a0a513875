// What is quick and wrong is not worth a figure.
#pragma once

#include <stdexcept>

// Throws std::runtime_error(what) unless it is right; the measuring program then ends without a figure for it.
inline void require(bool is_right, const char* what)
{
    if (!is_right) throw std::runtime_error(what);
}
