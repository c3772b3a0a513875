#include "wallet_bridge/wallet_events.h"

#include <mutex>

namespace {

struct Sinks {
    std::mutex mutex;
    TextSink event;
    TextSink log;
};

Sinks& sinks()
{
    static auto* const instance = new Sinks;  // never destroyed: a worker may emit when the process ends
    return *instance;
}

void set(TextSink Sinks::*which, TextSink sink)
{
    const std::scoped_lock lock(sinks().mutex);
    sinks().*which = std::move(sink);
}

TextSink get(TextSink Sinks::*which)
{
    const std::scoped_lock lock(sinks().mutex);
    return sinks().*which;
}

}  // namespace

void set_event_sink(TextSink sink)
{
    set(&Sinks::event, std::move(sink));
}

void set_log_sink(TextSink sink)
{
    set(&Sinks::log, std::move(sink));
}

void emit_event(std::string_view kind, std::string_view detail, std::string_view further_detail)
{
    const TextSink sink = get(&Sinks::event);
    if (!sink) return;
    std::string line = "[QX-VAULTRY]";
    for (const std::string_view part : {kind, detail, further_detail})
        if (!part.empty()) line.append("\x1f").append(part);
    sink(line);
}

void emit_log(const std::string& text)
{
    if (const TextSink sink = get(&Sinks::log)) sink(text);
}
