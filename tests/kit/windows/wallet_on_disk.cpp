#include "kit/windows/wallet_on_disk.h"

#include "text/json.h"

namespace {

constexpr char kWalletId[] = "1700000000000";

// The phrase of BIP39's first English vector.
constexpr char kPhrase[] =
    "abandon abandon abandon abandon abandon abandon abandon abandon abandon abandon abandon about";

}  // namespace

void write_wallet(const TestFolder& folder)
{
    folder.write("wallets.json", pretty_json({{"wallets", {{{"id", kWalletId}, {"name", "Wallet 1"}}}}}));
    folder.write(std::string("wallets/") + kWalletId + "/wallet.json",
                 pretty_json({{"version", 2}, {"mnemonic", kPhrase}, {"recv", {0, 0, 0, 0, 0, 0}}}));
}
