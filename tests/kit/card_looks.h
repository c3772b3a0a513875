// What a refresh of the wallet card looks at on the disk, in its order, as long as nothing has changed since the one
// before. For a program that is bound as bind_to_wallet() does.
#pragma once

struct CardLook {
    const char* path;  // in the data directory
    bool is_opened;    // read, or else asked about by its name
};

inline constexpr CardLook kCardLooks[] = {
    {"binds/c__tools_brasslet.json", true},  // which wallet is bound
    {"wallets/1/wallet.json.seal", false},   // is it locked
    {"wallets/1/wallet.json", true},
    {"corvane_paymail.json", false},  // for the ordinals address
    {"corvane_paymail.json", false},  // for the label
    {"wallets.json", false},
    {"payname/payname.json", true},
};
