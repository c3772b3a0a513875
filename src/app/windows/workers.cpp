#include "app/windows/workers.h"

#include "build_values.h"
#include "platform/text_conversion.h"
#include "update/update_check.h"
#include "wallet_bridge/connect.h"

#include <atomic>
#include <thread>

namespace {

std::atomic<int> running_workers = 0;

template <typename Work>
void start_worker(Work work)
{
    ++running_workers;
    std::thread([work = std::move(work)] {
        work();
        --running_workers;
    }).detach();
}

void check_for_update(HWND window)
{
    const std::int64_t found = find_newest_build(kMakersPage);
    if (IsWindow(window)) PostMessageW(window, MsgUpdateResult, static_cast<WPARAM>(found + 1), 0);
}

}  // namespace

void start_flow(HWND window, const Flow& flow, const SiteSettings& settings)
{
    start_worker([=] { post_text(window, MsgFlowResult, std::make_unique<std::wstring>(widen(flow(settings)))); });
}

void start_connecting(HWND window)
{
    start_worker([=] { post_text(window, MsgConnectResult, std::make_unique<std::string>(connect_wallet())); });
}

void start_update_check(HWND window)
{
    start_worker([=] { check_for_update(window); });
}

bool worker_is_running()
{
    return running_workers != 0;
}
