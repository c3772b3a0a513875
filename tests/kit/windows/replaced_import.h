// Another function in the place of one that the test program imports from Windows, for as long as this lives. The
// place is the linker's variable for it, "__imp_" and the function's name.
#pragma once

#include <windows.h>

template <typename Function>
class ReplacedImport {
public:
    ReplacedImport(Function& place, Function other) : m_place(place), m_original(place) { put(other); }
    ReplacedImport(const ReplacedImport&) = delete;
    ReplacedImport& operator=(const ReplacedImport&) = delete;
    ~ReplacedImport() { put(m_original); }

    Function original() const { return m_original; }

private:
    void put(Function function)
    {
        DWORD protection = 0;
        VirtualProtect(&m_place, sizeof m_place, PAGE_READWRITE, &protection);
        m_place = function;
        VirtualProtect(&m_place, sizeof m_place, protection, &protection);
    }

    Function& m_place;
    Function m_original;
};
