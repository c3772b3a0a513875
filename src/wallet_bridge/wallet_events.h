// Status lines for an optional observer, and plain log text. This program installs none; then they are dropped.
#pragma once

#include <functional>
#include <string>
#include <string_view>

using TextSink = std::function<void(const std::string&)>;

void set_event_sink(TextSink sink);  // an empty one takes the observer away; any thread
void set_log_sink(TextSink sink);

// The sink gets "[QX-VAULTRY]", the kind, and the details that are not empty, separated by 0x1F (unit separator). It is
// called on this thread with no lock held, so it may set a sink itself, and ask for the wallet.
void emit_event(std::string_view kind, std::string_view detail = {}, std::string_view further_detail = {});
void emit_log(const std::string& text);
