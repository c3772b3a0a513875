#include "app/workers.h"

#include "app/messages.h"
#include "app/posted_text.h"

#include <atomic>
#include <memory>
#include <thread>

namespace {

std::atomic<int> running_workers = 0;

void run_flow(HWND window, Flow flow, const SiteSettings& settings)
{
    post_text(window, MsgFlowResult, std::make_unique<std::wstring>(flow(settings)));
    --running_workers;
}

}  // namespace

void start_flow(HWND window, Flow flow, const SiteSettings& settings)
{
    ++running_workers;
    std::thread(run_flow, window, flow, settings).detach();
}

bool worker_is_running()
{
    return running_workers != 0;
}
