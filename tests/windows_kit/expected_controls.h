// What a screen reader is to hear of the controls, in the order in which they are read: the same, whichever of Windows'
// two interfaces it asks by.
#pragma once

#include "app/windows/controls.h"
#include "settings/windows/settings_window_controls.h"

enum class Heard { label, button, field, password, link };

struct ExpectedControl {
    int id = 0;
    Heard kind = Heard::label;
    const wchar_t* name = nullptr;
};

// After a start without a wallet and without settings. What has nothing to say yet has an empty name.
inline constexpr ExpectedControl kMainWindowControls[] = {
    {kConnectButton, Heard::button, L"Connect"},
    {kUnbindButton, Heard::button, L"Unbind"},
    {kSettingsButton, Heard::button, L"Settings"},
    {kHousePaymailCaption, Heard::label, L"House paymail"},
    {kHousePaymail, Heard::label, L"Connect Vaultry"},
    {kPaymentAddressCaption, Heard::label, L"Payment address"},
    {kPaymentAddress, Heard::label, L"Connect Vaultry"},
    {kNameCaption, Heard::label, L"Name"},
    {kNameField, Heard::field, L"Name"},
    {kNamePreview, Heard::label, L"name@your-site"},
    {kNameHint, Heard::label, L"Pays this house paymail. Other names stay."},
    {kKeptNames, Heard::label, L""},
    {kInstallButton, Heard::button, L"Install plugin"},
    {kPublishButton, Heard::button, L"Publish"},
    {kRemoveButton, Heard::button, L"Remove"},
    {kCloseButton, Heard::button, L"Close"},
    {kStatusLine, Heard::label, L""},
    {kVersionLabel, Heard::label, L"Version 0.001"},
};

inline constexpr ExpectedControl kSettingsControls[] = {
    {kSiteCaption, Heard::label, L"Site"},
    {kSiteField, Heard::field, L"Site"},
    {kUserCaption, Heard::label, L"WordPress user"},
    {kUserField, Heard::field, L"WordPress user"},
    {kPasswordCaption, Heard::label, L"Application password"},
    {kPasswordField, Heard::password, L"Application password"},
    {kShowPasswordButton, Heard::button, L"Show password"},
    {kPasswordHint, Heard::link,
     L"Not the site login. On your profile, Application Passwords, paste the one WordPress shows."},
    {kCloseSettingsButton, Heard::button, L"Close"},
};

// Sentences of the status line that need neither wallet nor site, and the buttons that bring them.
inline constexpr wchar_t kUnboundSentence[] = L"Unbound. Connect again to pick a wallet in Vaultry.";  // Unbind
inline constexpr wchar_t kNoWalletSentence[] = L"Connect a Vaultry wallet first.";                     // Publish

// What the buttons say, pressed one after the other by a user with a wallet and without a site.
struct ExpectedSentence {
    int button = 0;
    const wchar_t* sentence = nullptr;
};

inline constexpr ExpectedSentence kPresses[] = {
    {kConnectButton, L"Already connected. Unbind to pick another wallet."},
    {kInstallButton, L"Add the site in settings."},
    {kPublishButton, L"Type the name. Letters, numbers, and . _ + -"},
    {kRemoveButton, L"Type the name to remove."},
    {kUnbindButton, kUnboundSentence},
};
