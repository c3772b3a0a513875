#include "platform/user_protection.h"

#include "kit/test_folder.h"
#include "settings/settings_store.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <dpapi.h>

TEST(UserProtection, WhatWasProtectedOpensAgain)
{
    const auto sealed = protect_for_user(SecretText("p\xC3\xA4ss \xE7\x94\xA8 word"));
    ASSERT_TRUE(sealed);
    EXPECT_EQ(sealed->find("word"), std::string::npos);
    const auto opened = unprotect_for_user(*sealed);
    ASSERT_TRUE(opened);
    EXPECT_EQ(opened->text(), "p\xC3\xA4ss \xE7\x94\xA8 word");
}

TEST(UserProtection, TheProtectedFormCarriesTheProgramsName)
{
    const std::string name("B\0r\0a\0s\0s\0l\0e\0t\0", 16);
    EXPECT_NE(protect_for_user(SecretText("x")).value_or("").find(name), std::string::npos);
}

// Both ways against the system's own functions, so that what one version protects another can open.
TEST(UserProtection, AddsNoEntropy)
{
    std::string sealed = protect_for_user(SecretText("a password")).value_or("");
    DATA_BLOB input{static_cast<DWORD>(sealed.size()), reinterpret_cast<BYTE*>(sealed.data())};
    DATA_BLOB output{};
    ASSERT_TRUE(CryptUnprotectData(&input, nullptr, nullptr, nullptr, nullptr, 0, &output));
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(output.pbData), output.cbData), "a password");
    LocalFree(output.pbData);

    std::string plain = "another";
    input = {static_cast<DWORD>(plain.size()), reinterpret_cast<BYTE*>(plain.data())};
    ASSERT_TRUE(CryptProtectData(&input, nullptr, nullptr, nullptr, nullptr, 0, &output));
    const auto opened =
        unprotect_for_user(std::string_view(reinterpret_cast<const char*>(output.pbData), output.cbData));
    LocalFree(output.pbData);
    ASSERT_TRUE(opened);
    EXPECT_EQ(opened->text(), "another");
}

TEST(UserProtection, WhatWasChangedOrNeverProtectedDoesNotOpen)
{
    EXPECT_FALSE(unprotect_for_user(""));
    EXPECT_FALSE(unprotect_for_user("never protected"));
    std::string sealed = protect_for_user(SecretText("a password")).value_or("");
    ASSERT_FALSE(sealed.empty());
    sealed.pop_back();
    EXPECT_FALSE(unprotect_for_user(sealed));
}

TEST(UserProtection, NoFormOfThePasswordStandsInTheSettingsFile)
{
    const TestFolder folder;
    SiteSettings settings;
    settings.pass = StoredPassword(SecretText("abcdefghijklmnopqrstuvwx"));
    ASSERT_EQ(save_settings(settings, "bob"), SettingsNotice::none);
    const std::string text = folder.read("payname/ui.json");
    EXPECT_EQ(text.find("abcdefgh"), std::string::npos);
    EXPECT_EQ(text.find("YWJjZGVmZ2"), std::string::npos);  // its base64
    SiteSettings loaded;
    EXPECT_EQ(load_settings(loaded), SettingsNotice::none);
    EXPECT_EQ(loaded.pass.in_clear().text(), "abcdefghijklmnopqrstuvwx");
}
