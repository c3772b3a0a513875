// Which wallet this copy of the program is bound to. One bind record for every folder that a copy runs from.
#pragma once

#include <string>
#include <string_view>

struct WalletBinding {
    bool is_initialised = false;  // bind_at_startup has run
    std::string app;
    std::string instance;     // the executable's folder
    std::string wallet_id;    // empty: not bound
    bool is_recorded = true;  // the bind record says the same; otherwise it could not be written or deleted
};

// Once, at the start: migrates the older single-file layout, then takes the wallet of the bind record, or else the one
// wallet of a wallet list that holds exactly one, and writes the bind record.
void bind_at_startup(const std::string& instance, const std::string& app);

// A copy; any thread.
WalletBinding wallet_binding();

// The wallet of the bind record when that can be read and names one, else the one in memory. Where the record could not
// be changed it is an older wallet's, and the one in memory holds. Empty: not bound.
std::string bound_wallet_id();

// Binds `wallet_id` and writes the bind record; see WalletBinding::is_recorded for one that cannot be written. Nothing
// happens before bind_at_startup or for an empty id.
void bind_wallet(const std::string& wallet_id);

// Deletes the bind record and forgets the id: the next start binds again when there is but one wallet, or when the
// record could not be deleted (WalletBinding::is_recorded). Nothing happens before bind_at_startup.
void unbind_wallet();

void forget_binding();  // as if bind_at_startup had not run; the bind record stays

// File name of the bind record, without its ending: small letters and digits, everything else "_", the last 96 of them.
std::string bind_key(std::string_view instance);

// The bind record of the folder that this copy runs from.
std::string bind_record_path();
