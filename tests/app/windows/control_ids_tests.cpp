// The numbers of the controls. Tools that drive the windows from outside know them, so they stay as they are.
#include "app/windows/controls.h"

#include "settings/windows/settings_window_controls.h"

#include <gtest/gtest.h>

#include <vector>

TEST(ControlIds, OfTheMainWindowCountFrom1001)
{
    const std::vector<int> ids = {
        kConnectButton, kUnbindButton,        kSettingsButton,        kNameField,    kInstallButton,  kPublishButton,
        kRemoveButton,  kStatusLine,          kVersionLabel,          kHousePaymail, kPaymentAddress, kNamePreview,
        kKeptNames,     kHousePaymailCaption, kPaymentAddressCaption, kNameCaption,  kNameHint,       kCloseButton};
    for (std::size_t i = 0; i < ids.size(); ++i)
        EXPECT_EQ(ids[i], 1001 + static_cast<int>(i));
}

TEST(ControlIds, OfTheSettingsWindowCountFrom2001)
{
    const std::vector<int> ids = {kSiteField,   kUserField,   kPasswordField,   kCloseSettingsButton, kPasswordHint,
                                  kSiteCaption, kUserCaption, kPasswordCaption, kShowPasswordButton};
    for (std::size_t i = 0; i < ids.size(); ++i)
        EXPECT_EQ(ids[i], 2001 + static_cast<int>(i));
}
