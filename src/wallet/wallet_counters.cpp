#include "wallet/wallet_counters.h"

#include <limits>

namespace {

using nlohmann::json;

std::uint32_t counter_from(const json& element)
{
    constexpr auto kMost = std::numeric_limits<std::uint32_t>::max();
    if (!element.is_number_unsigned() || element.get<std::uint64_t>() > kMost) return 0;
    return element.get<std::uint32_t>();
}

}  // namespace

ReceiveCounters counters_from(const json& document)
{
    ReceiveCounters counters{};
    const auto list = document.find("recv");
    if (list == document.end() || !list->is_array()) return counters;
    for (std::size_t i = 0; i < counters.size() && i < list->size(); ++i)
        counters[i] = counter_from((*list)[i]);
    return counters;
}

std::uint32_t shown_from(const json& document, std::uint32_t most)
{
    const auto show = document.find("show");
    if (show == document.end() || !show->is_number()) return most;
    const auto count = show->get<double>();
    return count >= 0 && count < most ? static_cast<std::uint32_t>(count) : most;
}

void set_counters(json& document, const ReceiveCounters& counters)
{
    json& list = document["recv"];
    if (!list.is_array()) list = json::array();
    for (std::size_t i = 0; i < counters.size(); ++i) {
        if (i >= list.size()) {
            list.push_back(counters[i]);
        } else if (counter_from(list[i]) != counters[i]) {
            list[i] = counters[i];
        }
    }
}
