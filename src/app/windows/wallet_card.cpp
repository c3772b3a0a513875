#include "app/windows/wallet_card.h"

#include "app/name_preview.h"
#include "app/wallet_card_texts.h"
#include "app/windows/app_state.h"
#include "app/windows/controls.h"
#include "paymail/kept_names.h"

void refresh_wallet_card()
{
    const WalletCardTexts texts = wallet_card_texts();
    set_control_text(kHousePaymail, texts.house_paymail);
    set_control_text(kPaymentAddress, texts.payment_address);
    set_control_text(kKeptNames, texts.kept_names);
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
