// The wall clock as the shared files tell it.
#pragma once

#include <cstdint>

std::int64_t milliseconds_since_epoch();  // since 1970-01-01 UTC
