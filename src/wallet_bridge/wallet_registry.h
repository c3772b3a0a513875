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

std::string registry_path();

// Damaged: not a JSON object, or one whose "wallets" is no array. Its text is worth keeping, for a person to look at.
enum class RegistryStatus { sound, missing, unreadable, damaged };

struct RegistryReading {
    RegistryStatus status = RegistryStatus::unreadable;
    nlohmann::json document;  // {"wallets": []} unless sound
};

// What one attempt to read the file found, the document as parse_exact_json gives it. A file without a single byte is
// sound: nothing is lost with it. The caller holds the lock.
RegistryReading look_into_registry();

// The document alone, for who only reads: an object whose "wallets" is an array, whatever stands in the file.
nlohmann::json read_registry();

// True when the file holds the document; it is replaced as a whole, so that a reader sees the old or the new registry,
// never a part. The caller holds the lock.
bool write_registry(const nlohmann::json& registry);

// In the registry's order; entries without an id are left out.
std::vector<WalletEntry> list_wallets();

// The name of the first entry with that id; the id itself when there is none.
std::string wallet_display_name(const std::string& id);

// Makes `paymail` the name of the first entry with that id. Nothing happens when either is empty.
void set_registry_name_from_paymail(const std::string& id, const std::string& paymail);
