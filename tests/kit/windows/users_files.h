// What a test's user has on disk before the program starts, and what the program has left there.
#pragma once

#include "kit/test_folder.h"
#include "platform/windows/unique_handle.h"
#include "text/json.h"

#include <string>

struct Saved {
    std::string site;
    std::string user;
    std::string password;  // in clear; protected in the file
};

void save(const Saved& settings, const std::string& name = {});
Saved saved();

// A wallet as the wallet application leaves it, the only one and so connected at the start.
void write_wallet(const TestFolder& folder);
void write_one_wallet(const TestFolder& folder, const nlohmann::json& wallet);  // the same with this wallet document

// Two wallets, "1" and "2", of which the start binds none.
void write_two_wallets(const TestFolder& folder);

std::size_t bind_records(const TestFolder& folder);

// The one bind record, open elsewhere: it can be read, and neither written nor deleted.
UniqueHandle held_record(const TestFolder& folder);
