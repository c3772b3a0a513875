// This thread's single-threaded apartment, which the shell's functions ask for.
#pragma once

#include <objbase.h>

class ComApartment {
public:
    ComApartment() : m_is_entered(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {}
    ComApartment(const ComApartment&) = delete;
    ComApartment& operator=(const ComApartment&) = delete;
    ~ComApartment()
    {
        if (m_is_entered) CoUninitialize();
    }

private:
    bool m_is_entered;
};
