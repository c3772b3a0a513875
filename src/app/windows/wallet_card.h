// What the two cards say about the connected wallet and the name. All of it runs on the user-interface thread.
#pragma once

void refresh_wallet_card();
void refresh_name_preview();
void fill_name_field();  // with the published name of the connected wallet, or else the saved one
