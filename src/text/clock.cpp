#include "text/clock.h"

#include <chrono>

std::int64_t milliseconds_since_epoch()
{
    using namespace std::chrono;
    return duration_cast<milliseconds>(system_clock::now().time_since_epoch()).count();
}
