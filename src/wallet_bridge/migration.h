// The one-time move from the layout of older wallet applications, which kept a single wallet, to the registry.
#pragma once

// Makes the wallet file of the older layout the first wallet of the registry. Nothing happens when there is no such
// file or the registry already holds a wallet.
void migrate_single_wallet();
