// The wall clock as the shared files and paymail's requests tell it.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>

// Milliseconds since 1970-01-01 UTC.
inline std::int64_t milliseconds_since_epoch()
{
    using namespace std::chrono;
    return duration_cast<milliseconds>(system_clock::now().time_since_epoch()).count();
}

// Such a time as ISO 8601 text in UTC: "2026-01-02T03:04:05.678Z".
std::string iso_time(std::int64_t milliseconds_since_epoch);
