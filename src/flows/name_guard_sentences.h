// What the user is told after a look at the kept names.
#pragma once

#include "flows/name_guard.h"

#include <string>
#include <vector>

// Which names pay somebody else, and what to do; empty when none does. Names about which nothing is known are not told.
[[nodiscard]] std::string guard_warning(const std::vector<LookedAtName>& names);

// The same for a user who has asked: never empty.
[[nodiscard]] std::string guard_answer(const std::vector<LookedAtName>& names);
