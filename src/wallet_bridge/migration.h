// The one-time move from the layout of older wallet applications, which kept a single wallet, to the wallet list.
#pragma once

// Makes the wallet file of the older layout, with its seal file, the first wallet of the wallet list. Nothing happens
// when there is no such file, when the wallet list already holds a wallet, or when the wallet list cannot be read now.
//
// Before anything moves, the id of the new wallet is written into a mark beside the older file, and the mark goes when
// the wallet list holds the wallet. A mark that is found shows a move that was cut short, by a kill or by a file that
// was held: it is brought to its end, whatever the wallet list holds by then. A folder without a mark is left alone:
// its wallet may be one that the user has deleted from the wallet list. When the wallet list cannot be written, all is
// moved back.
void migrate_single_wallet();
