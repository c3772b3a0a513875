// What the start finds out beside the making of the window, and what the window makes of it.
#include "app/windows/start_work.h"

#include "app/windows/controls.h"
#include "kit/windows/own_window.h"
#include "kit/windows/users_files.h"
#include "wallet_bridge/binding.h"
#include "wallet_bridge/wallet_identity.h"

#include <gtest/gtest.h>

TEST(StartWork, BindsTheWalletAndFindsSettingsAndTextsOfTheCards)
{
    const TestFolder folder;
    write_wallet(folder);
    save({"https://brasslet.test", "owner", "abcd efgh"}, "bob");
    StartWork work;
    const FoundAtStart& found = work.wait();
    EXPECT_EQ(wallet_binding().app, "Brasslet");
    EXPECT_EQ(found.settings.site, "https://brasslet.test");
    EXPECT_EQ(found.notice, SettingsNotice::none);
    EXPECT_EQ(found.cards.name, "bob");
    EXPECT_EQ(found.cards.wallet.payment_address, wallet_address());
}

TEST(StartWork, TellsWhatTheUserShouldKnowOfTheSettings)
{
    const TestFolder folder;
    folder.write("payname/ui.json", "{");
    StartWork work;
    EXPECT_NE(work.wait().notice, SettingsNotice::none);
}

TEST(StartWork, IsAskedForOnceAllControlsAreInTheirPlacesAndShownBeforeTheWindowIs)
{
    const TestFolder folder;
    const OwnWindow window(kDefaultDpi, [] {
        const HWND made = app_state().main_window;
        RECT version{};
        GetWindowRect(GetDlgItem(made, kVersionLabel), &version);
        MapWindowPoints(HWND_DESKTOP, made, reinterpret_cast<POINT*>(&version), 2);
        EXPECT_GT(version.right, version.left);
        EXPECT_EQ(from_windows(version), app_state().layout.version);
        EXPECT_EQ(app_state().tips, nullptr);
        EXPECT_FALSE(IsWindowVisible(made));
        app_state().settings.site = "https://brasslet.test";
        app_state().settings_notice = SettingsNotice::damaged;
        return CardTexts{"alice", {"sofia@house.example", "an address", "Vaultry kept alice@brasslet.test"}};
    });
    EXPECT_EQ(window.text(kNameField), L"alice");
    EXPECT_EQ(window.text(kNamePreview), L"alice@brasslet.test");
    EXPECT_EQ(window.text(kHousePaymail), L"sofia@house.example");
    EXPECT_EQ(window.text(kPaymentAddress), L"an address");
    EXPECT_EQ(window.text(kKeptNames), L"Vaultry kept alice@brasslet.test");
    EXPECT_NE(window.text(kStatusLine), L"");
}
