// The wallet list, "wallets.json": the wallets on this PC. The wallet application keeps it; this program reads it,
// moves an older wallet into it, and names a wallet after its house paymail. Whoever reads the document, or reads it
// and writes it back, shows by a RegistryLock over both that it is their turn.
#pragma once

#include "platform/file_stamp.h"

#include <nlohmann/json.hpp>

#include <string>
#include <vector>

// The right to read and rewrite the wallet list: taken in turns by the threads of this process, and by this program and
// the wallet application. Held from construction to destruction; waits without a time limit. A thread that holds it may
// take it again. When the lock file cannot be opened or locked, the threads of this process still take turns, and
// nobody is told.
class RegistryLock {
public:
    RegistryLock();
    RegistryLock(const RegistryLock&) = delete;
    RegistryLock& operator=(const RegistryLock&) = delete;
    ~RegistryLock();
};

struct WalletEntry {
    std::string id;    // never empty
    std::string name;  // to show; the id when the list gives none
};

// Damaged: not a JSON object, or one whose "wallets" is not an array. Its text is worth keeping, for a person to look
// at.
enum class WalletListStatus { sound, missing, unreadable, damaged };

struct WalletListReading {
    WalletListStatus status = WalletListStatus::unreadable;
    nlohmann::json document;  // {"wallets": []} unless sound
};

// What one attempt to read the file found, the document as parse_exact_json gives it. A file without a single byte is
// sound: nothing is lost with it.
WalletListReading look_into_wallet_list(const RegistryLock& lock);

// The document alone, for who only reads: an object whose "wallets" is an array, whatever stands in the file.
nlohmann::json read_registry(const RegistryLock& lock);

// True when the file holds the document; it is replaced as a whole, so that a reader sees the old or the new list,
// never a part.
[[nodiscard]] bool write_registry(const RegistryLock& lock, const nlohmann::json& list);

// In the order of the file; entries without an id are left out.
std::vector<WalletEntry> list_wallets();

// The name of the first entry with that id; the id itself when there is none.
std::string wallet_display_name(const std::string& id);

// The name that the list gave the first entry with that id when it was last looked up for a paymail.
struct ListedName {
    FileStamp list;  // taken before the reading
    std::string id;
    std::string name;
};

// Makes `paymail` the name of the first entry with that id. Nothing happens when either is empty. While the list is as
// it was when it was seen to say so, it is not read again, and nobody's turn is waited for.
void set_registry_name_from_paymail(const std::string& id, const std::string& paymail);
