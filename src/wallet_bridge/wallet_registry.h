// The registry of the wallets on this PC, "wallets.json", which the wallet application keeps and this program reads.
// Whoever reads the document and writes it back holds a RegistryLock over both.
#pragma once

#include <nlohmann/json.hpp>

#include <string>
#include <vector>

struct WalletEntry {
    std::string id;    // never empty
    std::string name;  // to show; the id when the registry gives none
};

// As parse_exact_json gives it, an object whose "wallets" is an array, whatever stands in the file: a missing,
// unreadable or malformed file reads as
// {"wallets": []}. The caller holds the lock.
nlohmann::json read_registry();

// False when the file is there but cannot be opened at this moment: it reads as empty, but must not be taken for it.
bool is_registry_within_reach();

// True when the file holds the document; it is replaced as a whole, so that a reader sees the old or the new registry,
// never a part. The caller holds the lock.
bool write_registry(const nlohmann::json& registry);

// In the registry's order; entries without an id are left out.
std::vector<WalletEntry> list_wallets();

// The name of the first entry with that id; the id itself when there is none.
std::string wallet_display_name(const std::string& id);

// Makes `paymail` the name of the first entry with that id. Nothing happens when either is empty.
void set_registry_name_from_paymail(const std::string& id, const std::string& paymail);
