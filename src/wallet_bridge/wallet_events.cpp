#include "wallet_bridge/wallet_events.h"

#include "wallet_bridge/wallet_state.h"

void set_event_sink(TextSink sink)
{
    auto sinks = wallet_state().sinks.hold();
    sinks->event = std::move(sink);
}

void set_log_sink(TextSink sink)
{
    auto sinks = wallet_state().sinks.hold();
    sinks->log = std::move(sink);
}

void emit_event(std::string_view kind, std::string_view detail, std::string_view further_detail)
{
    const TextSink sink = wallet_state().sinks.copy().event;
    if (!sink) return;
    std::string line = "[QX-VAULTRY]";
    for (const std::string_view part : {kind, detail, further_detail})
        if (!part.empty()) line.append("\x1f").append(part);
    sink(line);
}

void emit_log(const std::string& text)
{
    if (const TextSink sink = wallet_state().sinks.copy().log) sink(text);
}
