// The counters of a wallet document: how many keys the wallet application has handed out on each of six branches.
#pragma once

#include "wallet/wallet_document.h"

#include <nlohmann/json.hpp>

#include <cstdint>

// From the document's "recv". What is no integer from 0 to 2^32 - 1 reads as 0, and so does what is missing.
ReceiveCounters counters_from(const nlohmann::json& document);

// From the document's "show", a fraction dropped: never more than `most`, and `most` when it is no number of 0 or more.
std::uint32_t shown_from(const nlohmann::json& document, std::uint32_t most);

// Sets the document's "recv". An element that reads as the counter already stays as it stands, even one that only this
// program cannot read: the wallet application's count must not be lost. So do elements beyond the sixth.
void set_counters(nlohmann::json& document, const ReceiveCounters& counters);
