// The wall clock as the shared files tell it.
#pragma once

#include <chrono>
#include <cstdint>

// Milliseconds since 1970-01-01 UTC.
inline std::int64_t milliseconds_since_epoch()
{
    using namespace std::chrono;
    return duration_cast<milliseconds>(system_clock::now().time_since_epoch()).count();
}
