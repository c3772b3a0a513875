// Wallet files for tests, and a program that is bound to one of them.
#pragma once

#include "kit/test_folder.h"

#include <nlohmann/json.hpp>

#include <string>

// The published BIP39 test phrase of all-zero entropy.
inline constexpr char kPhrase[] = "abandon abandon abandon abandon abandon abandon abandon abandon abandon abandon "
                                  "abandon about";

// A recovery-phrase wallet of that phrase, all counters 0, with the members of `more` added.
nlohmann::json phrase_wallet(const nlohmann::json& more = nlohmann::json::object());

// Lists the wallet with the id "1", writes its file and starts the program, which binds it.
void bind_to_wallet(const TestFolder& folder, const nlohmann::json& wallet);

// Whether a wallet is loaded at this moment; not for a thread that holds the wallet.
bool is_wallet_loaded();
