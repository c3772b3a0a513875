// Two things timed in turn, A B A B ..., so that whatever else the machine does meets both.
#pragma once

#include <chrono>
#include <cstdio>

template <typename Work>
double microseconds_of(Work work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - start).count();
}

// The line for one pair: NAME, microseconds of the floor, microseconds of the program's own, separated by tabs.
inline void print_pair(const char* name, double floor, double own)
{
    std::printf("%s\t%.1f\t%.1f\n", name, floor, own);
    std::fflush(stdout);
}

// One line for each of `pairs` pairs, after one that does not count. `before` is done ahead of each of the two, off the
// clock.
template <typename Before, typename Floor, typename Own>
void print_pairs(const char* name, int pairs, Before before, Floor floor, Own own)
{
    for (int pair = -1; pair < pairs; ++pair) {
        before();
        const double floor_time = microseconds_of(floor);
        before();
        const double own_time = microseconds_of(own);
        if (pair >= 0) print_pair(name, floor_time, own_time);
    }
}
