#include "kit/test_program/afresh.h"

#include "kit/test_program/environment.h"
#include "wallet_bridge/afresh.h"

#include <clocale>
#include <filesystem>
#include <utility>
#include <vector>

#ifndef _WIN32
#include "kit/stand_in/stand_in.h"
#endif

namespace {

std::vector<std::function<void()>>& resets()
{
    static std::vector<std::function<void()>> functions;
    return functions;
}

// As they were when the program started.
const Environment g_environment = current_environment();
const std::filesystem::path g_folder = std::filesystem::current_path();

}  // namespace

bool start_afresh_with(std::function<void()> reset)
{
    resets().push_back(std::move(reset));
    return true;
}

void start_afresh()
{
    start_wallet_state_afresh();
#ifndef _WIN32
    stand_in() = StandIn();
#endif
    restore_environment(g_environment);
    std::filesystem::current_path(g_folder);
    std::setlocale(LC_ALL, "C");
    for (const auto& reset : resets())
        reset();
}
