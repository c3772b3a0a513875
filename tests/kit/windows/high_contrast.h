// A user who has asked Windows for high contrast, in the colours of a dark scheme. Wine has no such setting: for as
// long as this lives, the answers of Windows are the test's own.
#pragma once

#include "kit/windows/replaced_import.h"
#include "ui/palette.h"

// Every colour differs from the others and from the program's own.
inline constexpr SystemColours kContrastScheme{{2, 0, 0},       {255, 255, 254}, {255, 255, 0},  {0, 0, 3},
                                               {253, 255, 255}, {63, 242, 63},   {26, 235, 255}, {0, 4, 0}};

class HighContrast {
public:
    HighContrast();
    HighContrast(const HighContrast&) = delete;
    HighContrast& operator=(const HighContrast&) = delete;
    ~HighContrast();

private:
    ReplacedImport<decltype(&SystemParametersInfoW)> m_parameters;
    ReplacedImport<decltype(&GetSysColor)> m_colours;
};
