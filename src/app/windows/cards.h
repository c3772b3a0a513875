// The wallet card and the name card, and the buttons that connect the program to a wallet and let go of it. All of it
// runs on the user-interface thread.
#pragma once

#include "app/card_texts.h"

#include <string>

void show_cards(const CardTexts& texts);  // and the name preview
void refresh_wallet_card();
void refresh_name_preview();
void fill_name_field();  // with the published name of the connected wallet, or else the saved one

void on_connect_pressed();  // starts the worker that asks the wallet application, unless something runs or a wallet is
                            // connected
void on_connect_result(const std::string& result);  // what the worker posted

void on_unbind_pressed();
