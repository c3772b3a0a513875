// Every test finds the process as the first one did, whatever ran in it before: all that outlives a test and that a
// test may change is put back before the next.
#pragma once

#include <functional>

// Has `reset` called before every test. For the initialiser of a constant in a source that only some programs have;
// always true.
bool start_afresh_with(std::function<void()> reset);

// Calls all of them, after what every program has: the connected wallet, environment variables, current folder, locale.
void start_afresh();
