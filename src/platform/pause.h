// Waiting on purpose.
#pragma once

#include <chrono>

// Holds this thread up; never call it on the user-interface thread.
void pause(std::chrono::milliseconds duration);
