// Members of a wallet document: the counters, which tell how many keys the wallet application has handed out in each of
// six accounts; the ordinals that the wallet holds; its contacts. In the two lists a member of the wrong type reads as
// missing, and an element that is not an object is skipped.
#pragma once

#include "wallet/wallet_document.h"

#include <nlohmann/json.hpp>

#include <cstdint>
#include <vector>

// From the document's "recv". A missing element, and any other than an integer from 0 to 2^32 - 1, reads as 0.
ReceiveCounters counters_from(const nlohmann::json& document);

// From the document's "show", truncated to an integer, at most `most`; `most` when it is missing, negative or not a
// number.
std::uint32_t shown_from(const nlohmann::json& document, std::uint32_t most);

// Sets the document's "recv". An element that already reads as its counter is not written, nor are those beyond the
// sixth: one that this program cannot read may be the wallet application's count.
void set_counters(nlohmann::json& document, const ReceiveCounters& counters);

std::vector<OrdinalItem> ordinals_from(const nlohmann::json& document);  // "ord_owned"
std::vector<Contact> contacts_from(const nlohmann::json& document);      // "contacts"

// Writes the list unless `document` has a value there that is not an empty array: that is kept unchanged. An empty
// "ord_owned" is left out, an empty "contacts" is written.
void set_ordinals(nlohmann::json& document, const std::vector<OrdinalItem>& ordinals);
void set_contacts(nlohmann::json& document, const std::vector<Contact>& contacts);
