#include "fuzz/target.h"

#include <cstdio>
#include <cstdlib>

namespace {

std::vector<FuzzTarget>& known_targets()
{
    static std::vector<FuzzTarget> targets;
    return targets;
}

}  // namespace

FuzzTarget::FuzzTarget(const char* file_name, void (*check_bytes)(std::string_view bytes))
    : name(file_name), check(check_bytes)
{
    known_targets().push_back(*this);
}

const std::vector<FuzzTarget>& fuzz_targets()
{
    return known_targets();
}

void require(bool holds, const char* what)
{
    if (holds) return;
    static_cast<void>(std::fprintf(stderr, "does not hold: %s\n", what));
    std::abort();
}
