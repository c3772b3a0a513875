#include "text/clock.h"

#include <array>
#include <cstdio>

std::string iso_time(std::int64_t milliseconds_since_epoch)
{
    using namespace std::chrono;
    const sys_time<milliseconds> when{milliseconds(milliseconds_since_epoch)};
    const auto day = floor<days>(when);
    const year_month_day date(day);
    const hh_mm_ss<milliseconds> time(when - day);
    std::array<char, 64> text{};
    static_cast<void>(std::snprintf(text.data(), text.size(), "%04d-%02u-%02uT%02d:%02d:%02d.%03dZ",
                                    static_cast<int>(date.year()), static_cast<unsigned>(date.month()),
                                    static_cast<unsigned>(date.day()), static_cast<int>(time.hours().count()),
                                    static_cast<int>(time.minutes().count()), static_cast<int>(time.seconds().count()),
                                    static_cast<int>(time.subseconds().count())));
    return text.data();
}
