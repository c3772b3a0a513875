#include "kit/wallet_files.h"

#include "wallet_bridge/binding.h"
#include "wallet_bridge/loaded_wallet.h"

nlohmann::json phrase_wallet(const nlohmann::json& more)
{
    nlohmann::json wallet = {{"version", 2},
                             {"mnemonic", kPhrase},
                             {"backup", true},
                             {"recv", {0, 0, 0, 0, 0, 0}},
                             {"contacts", nlohmann::json::array()}};
    wallet.update(more);
    return wallet;
}

void bind_to_wallet(const TestFolder& folder, const nlohmann::json& wallet)
{
    folder.write("wallets.json", R"({"wallets":[{"id":"1","name":"Savings"}]})");
    folder.write("wallets/1/wallet.json", wallet.dump());
    bind_at_startup("C:\\Tools\\Brasslet", "Brasslet");
}

bool is_wallet_loaded()
{
    HeldWallet held = hold_wallet();
    return held->wallet.has_value();
}
