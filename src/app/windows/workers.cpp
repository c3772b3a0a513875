#include "app/windows/workers.h"

#include "build_values.h"
#include "net/http_exchange.h"
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
    static const CurlLifetime curl;  // for all of them, until the process ends
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

// The result is posted at its time; the thread lasts until the last request has ended.
void look_at_names(HWND window, const std::shared_ptr<const RunningLook>& running)
{
    const NamesOfWallet names = names_to_guard();
    LookLimits limits;
    limits.goes_on = [running] { return running->goes_on.load(); };
    NameLook look(names, limits);
    post_text(window, MsgGuardResult, std::make_unique<GuardResult>(GuardResult{running, names.wallet, look.states()}));
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

void start_name_look(HWND window, const std::shared_ptr<const RunningLook>& look)
{
    start_worker([=] { look_at_names(window, look); });
}

bool worker_is_running()
{
    return running_workers != 0;
}
