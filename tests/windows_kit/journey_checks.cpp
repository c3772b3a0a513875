// A first-time user's road through the real windows, against a site that answers what a real WordPress answered.
#include "app/windows/controls.h"
#include "kit/windows/running_program.h"
#include "kit/windows/users_files.h"
#include "kit/windows/vaultry.h"
#include "platform/environment.h"
#include "platform/text_conversion.h"
#include "platform/windows/windows_path.h"
#include "settings/windows/settings_window_controls.h"
#include "text/ascii.h"
#include "windows_kit/journey.h"
#include "windows_kit/report.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;

TEST_F(Journey, SettingsAreKeptAsTypedAndThePasswordProtected)
{
    const RunningProgram program;
    const OpenSettingsWindow settings(program);
    settings.type(kSiteField, L"brasslet.test");
    settings.type(kUserField, L"owner");
    settings.type(kPasswordField, widen(kPassword).c_str());
    show_picture("The settings window", settings.window());
    settings.close_by_box();
    show_picture("The main window at a first start", program.window());
    EXPECT_EQ(program.close(), 0u);
    EXPECT_EQ(saved().site, "brasslet.test");
    EXPECT_EQ(saved().user, "owner");
    EXPECT_EQ(saved().password, kPassword);
    for (const std::string& clear : {std::string(kPassword), base64_encode(kPassword)})
        EXPECT_THAT(folder.read("payname/ui.json"), testing::Not(testing::HasSubstr(clear)));
}

TEST_F(Journey, ConnectAsksVaultryAndShowsTheWalletsAddress)
{
    write_two_wallets(folder);
    const std::wstring beside = copy_of_program();
    put_vaultry(beside);
    set_vaultry_orders(L"\"" + beside + L"\\notices\" --show visible --connect approve:1");
    {
        const RunningProgram program(beside);
        EXPECT_NE(program.text(kPaymentAddress), L"18pBoqRpHUYf9udsab5G9LT3vQUPxEyMFf");
        program.press(kConnectButton);
        EXPECT_TRUE(program.shows(kStatusLine, L"Connected.")) << narrow(program.text(kStatusLine));
        EXPECT_TRUE(program.shows(kPaymentAddress, L"18pBoqRpHUYf9udsab5G9LT3vQUPxEyMFf"))
            << narrow(program.text(kPaymentAddress));
        show_picture("Connected to Vaultry", program.window());
    }
    close_vaultry();
}

TEST_F(Journey, InstallLeavesTheZipInItsFolderAndOpensIt)
{
    site().set_state("bare");
    save(kSettings);
    const RunningProgram program;
    program.press(kInstallButton);
    EXPECT_TRUE(program.shows(kStatusLine, L"Brasslet.zip is selected in the folder that opened. Upload it, activate "
                                           L"it, then press Install plugin again."))
        << narrow(program.text(kStatusLine));
    show_picture("After Install plugin", program.window());
    EXPECT_TRUE(folder.read("payname/brasslet.zip").starts_with("PK"));
    close_opened_folder();
    note("Your browser was asked to open WordPress' upload page of brasslet.test, which is not there.");
}

TEST_F(Journey, InstallSeesThePluginOnTheSite)
{
    site().set_state("plugin");
    save(kSettings);
    const RunningProgram program;
    program.press(kInstallButton);
    EXPECT_TRUE(program.shows(kStatusLine, L"Plugin is on the site.")) << narrow(program.text(kStatusLine));
}

TEST_F(Journey, APublishedNameIsAskedForAsPayersDoAndKept)
{
    site().set_state("plugin");
    save(kSettings);
    write_wallet(folder);
    const RunningProgram program;
    program.type(L"alice");
    program.press(kPublishButton);
    EXPECT_TRUE(program.shows(kStatusLine, L"Vaultry kept alice@brasslet.test.")) << narrow(program.text(kStatusLine));
    show_picture("After Publish", program.window());
    EXPECT_THAT(asked_of("brasslet.test"),
                ElementsAre("GET /wp-json/brasslet/v1/status", "POST /wp-json/brasslet/v1/name",
                            "GET /.well-known/bsvalias", "GET /wp-json/brasslet/v1/id/alice",
                            "POST /wp-json/brasslet/v1/address/alice"));
    EXPECT_THAT(folder.read("payname/payname.json"), testing::HasSubstr("alice@brasslet.test"));
}

TEST_F(Journey, ARemovedNameIsForgotten)
{
    site().set_state("published");
    save(kSettings);
    write_wallet(folder);
    const RunningProgram program;
    program.type(L"alice");
    program.press(kPublishButton);
    EXPECT_TRUE(program.shows(kStatusLine, L"Vaultry kept alice@brasslet.test.")) << narrow(program.text(kStatusLine));
    site().forget();
    program.press(kRemoveButton);
    EXPECT_TRUE(program.shows(kStatusLine, L"Removed alice@brasslet.test.")) << narrow(program.text(kStatusLine));
    show_picture("After Remove", program.window());
    EXPECT_THAT(asked_of("brasslet.test"),
                ElementsAre("GET /wp-json/brasslet/v1/status", "DELETE /wp-json/brasslet/v1/name"));
    EXPECT_FALSE(folder.has("payname/payname.json"));
}

TEST_F(Journey, ANewerBuildIsToldInAQuestionAndOnTheLabel)
{
    site().set_makers_page("<p>Current build: 0.002</p>");
    const RunningProgram program;
    ASSERT_TRUE(becomes_true([&] { return question_of(program) != nullptr; }));
    show_picture("The question about a newer build", question_of(program));
    EXPECT_EQ(text_of(GetDlgItem(question_of(program), 0xFFFF)), L"Version 0.002 is on the shelf.\n\nOpen the page?");
    PostMessageW(GetDlgItem(question_of(program), IDNO), BM_CLICK, 0, 0);
    EXPECT_TRUE(program.shows(kVersionLabel, L"Update available, https://corvane.example/brasslet"));
    EXPECT_TRUE(becomes_true([&] { return question_of(program) == nullptr; }));
}

}  // namespace
