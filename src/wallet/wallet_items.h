// The two lists of a wallet document: the ordinals that the wallet holds, and its contacts. This program only reads
// them. An object with members of a wrong type is read without these; what is no object is skipped.
#pragma once

#include "wallet/wallet_document.h"

#include <nlohmann/json.hpp>

#include <vector>

std::vector<OrdinalItem> ordinals_from(const nlohmann::json& document);  // "ord_owned"
std::vector<Contact> contacts_from(const nlohmann::json& document);      // "contacts"

// Keep the lists of `document` where it has them, down to what is not read, and otherwise write the given ones: an
// empty "ord_owned" is left out, an empty "contacts" is not.
void set_ordinals(nlohmann::json& document, const std::vector<OrdinalItem>& ordinals);
void set_contacts(nlohmann::json& document, const std::vector<Contact>& contacts);
