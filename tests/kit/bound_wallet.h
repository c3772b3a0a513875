// A data directory that holds one recovery-phrase wallet, to which this process is bound.
#pragma once

#include "kit/test_folder.h"

#include <string>

struct BoundWallet {
    BoundWallet();

    TestFolder folder;
    const std::string text =
        R"({"version":2,"mnemonic":"abandon abandon abandon abandon abandon abandon abandon abandon abandon )"
        R"(abandon abandon about","backup":true,"recv":[0,0,0,0,0,0],"show":0})";
    std::string key;      // identity public key
    std::string address;  // payment address
};

inline constexpr char kBoundWalletFile[] = "wallets/1/wallet.json";
