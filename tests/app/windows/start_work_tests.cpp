// What the start finds out beside the making of the window, and what the window makes of it.
#include "app/windows/start_work.h"

#include "app/windows/controls.h"
#include "kit/windows/own_window.h"
#include "kit/windows/users_files.h"
#include "wallet_bridge/binding.h"
#include "wallet_bridge/wallet_identity.h"

#include <gtest/gtest.h>

namespace {

// In the main window, while it is being made.
Rect place_of(int id)
{
    const HWND made = app_state().main_window;
    RECT place{};
    GetWindowRect(GetDlgItem(made, id), &place);
    MapWindowPoints(HWND_DESKTOP, made, reinterpret_cast<POINT*>(&place), 2);
    return from_windows(place);
}

}  // namespace

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
        EXPECT_GT(place_of(kVersionLabel).width, 10);
        EXPECT_EQ(place_of(kVersionLabel), app_state().layout.version);
        SetWindowPos(made, nullptr, 0, 0, 1000, 700, SWP_NOMOVE | SWP_NOZORDER);
        EXPECT_EQ(place_of(kCloseButton), app_state().layout.close);
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
