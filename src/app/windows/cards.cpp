#include "app/windows/cards.h"

#include "app/windows/app_state.h"
#include "app/windows/busy_guard.h"
#include "app/windows/controls.h"
#include "app/windows/name_guard.h"
#include "app/windows/workers.h"
#include "platform/text_conversion.h"
#include "wallet_bridge/binding.h"
#include "wallet_bridge/connect.h"
#include "wallet_bridge/wallet_identity.h"

namespace {

void show_wallet_card(const WalletCardTexts& texts)
{
    set_control_text(kHousePaymail, texts.house_paymail);
    set_control_text(kPaymentAddress, texts.payment_address);
    show_kept_names(texts.kept_names);
}

void show_name(const std::string& name)
{
    if (!name.empty()) set_control_text(kNameField, name);
}

}  // namespace

void show_cards(const CardTexts& texts)
{
    show_name(texts.name);
    show_wallet_card(texts.wallet);
    refresh_name_preview();
}

void refresh_wallet_card()
{
    show_wallet_card(wallet_card_texts(app_state().marked_names));
}

void refresh_name_preview()
{
    set_control_text(kNamePreview, name_preview(name_field_text(), app_state().settings.site));
}

void fill_name_field()
{
    show_name(name_for_field());
}

void on_connect_pressed()
{
    if (is_already_working()) return;
    if (wallet_ready()) {
        set_status(L"Already connected. Unbind to pick another wallet.");
        return;
    }
    set_busy(kConnectButton);
    set_status(L"Waiting for Vaultry to approve.");
    start_connecting(app_state().main_window);
}

void on_connect_result(const std::string& result)
{
    clear_busy();
    if (result.empty()) {
        set_status(L"Vaultry did not connect.");
        return;
    }
    if (!result.starts_with("success")) {
        set_status(widen(result));
        return;
    }
    refresh_wallet_card();
    fill_name_field();
    refresh_name_preview();
    set_status(wallet_binding().is_recorded ? L"Connected."
                                            : L"Connected. The file that remembers the wallet could not be written: "
                                              L"connect again at the next start.");
}

void on_unbind_pressed()
{
    stop_name_guard();
    disconnect_wallet();
    refresh_wallet_card();
    set_status(
        wallet_binding().is_recorded
            ? L"Unbound. Connect again to pick a wallet in Vaultry."
            : L"Unbound. The file that remembers the wallet could not be deleted: the next start may use it again.");
}
