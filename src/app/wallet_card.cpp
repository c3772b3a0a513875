#include "app/wallet_card.h"

#include "app/app_state.h"
#include "app/controls.h"
#include "app/name_preview.h"
#include "paymail/payname_registry.h"
#include "wallet_bridge/wallet_identity.h"

namespace {

void show_wallet(const std::string& house_paymail, const std::string& address, const std::string& kept_names)
{
    set_control_text(kHousePaymail, house_paymail);
    set_control_text(kPaymentAddress, address);
    set_control_text(kKeptNames, kept_names);
}

}  // namespace

void refresh_wallet_card()
{
    if (!wallet_ready()) {
        show_wallet("Connect Vaultry", "Connect Vaultry", "");
        return;
    }
    const std::string paymail = wallet_paymail();
    const std::string names = names_of_this_wallet();
    show_wallet(paymail.empty() ? "No house paymail yet" : paymail, wallet_address().value_or(""),
                names.empty() ? "" : "Vaultry kept " + names);
}

void refresh_name_preview()
{
    set_control_text(kNamePreview, name_preview(name_field_text(), app_state().settings.site));
}

void fill_name_field()
{
    const std::string name = name_for_field(saved_name(), names_of_this_wallet());
    if (!name.empty()) set_control_text(kNameField, name);
}
