// High contrast, switched on for this desktop, and off again when this dies or its process does.
#pragma once

#include <windows.h>

bool is_in_high_contrast();

class RealContrast {
public:
    RealContrast();
    RealContrast(const RealContrast&) = delete;
    RealContrast& operator=(const RealContrast&) = delete;
    ~RealContrast();  // returns when what was set before is set again

    bool comes_on() const;  // false where the system refuses

private:
    HANDLE m_end = nullptr;
    HANDLE m_process = nullptr;
};
