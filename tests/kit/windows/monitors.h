// Monitors of other resolutions than the test desktop's, as the windows of this process are told of them.
#pragma once

#include "kit/windows/replaced_import.h"

class Monitors {
public:
    // The main window stands on a monitor of `main_dpi`, and every other window on one of `other_dpi`.
    Monitors(UINT main_dpi, UINT other_dpi);

private:
    ReplacedImport<decltype(&GetDpiForWindow)> m_answer;
};
