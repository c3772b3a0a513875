#include "settings/stored_password.h"

#include "platform/user_protection.h"
#include "text/base64.h"

#include <gtest/gtest.h>

namespace {

const std::string kPassword = "abcdefghijklmnopqrstuvwx";

}  // namespace

TEST(StoredPassword, OpensAgain)
{
    const StoredPassword stored(SecretText{kPassword});
    EXPECT_TRUE(stored.is_stored());
    EXPECT_TRUE(stored.opens());
    EXPECT_EQ(stored.in_clear().text(), kPassword);
}

TEST(StoredPassword, HoldsNothingButWhatTheFileHolds)
{
    const StoredPassword stored(SecretText{kPassword});
    const std::string& text = stored.text_for_file();
    EXPECT_EQ(text.find("abcdefgh"), std::string::npos);
    EXPECT_EQ(unprotect_for_user(base64_decode(text)).value_or(SecretText()).text(), kPassword);
    EXPECT_EQ(StoredPassword::of_file(text), stored);
    EXPECT_EQ(sizeof stored, sizeof text);
}

TEST(StoredPassword, AnEmptyOneIsNotStored)
{
    for (const StoredPassword& none : {StoredPassword(), StoredPassword(SecretText()), StoredPassword::of_file("")}) {
        EXPECT_FALSE(none.is_stored());
        EXPECT_FALSE(none.opens());
        EXPECT_EQ(none.in_clear().text(), "");
        EXPECT_EQ(none.text_for_file(), "");
    }
}

TEST(StoredPassword, KeepsATextThatDoesNotOpenAsItStands)
{
    for (const char* text : {"====", "!!", "cGxhaW4gdGV4dA==", "not base64 of anything protected"}) {
        const StoredPassword locked = StoredPassword::of_file(text);
        EXPECT_TRUE(locked.is_stored());
        EXPECT_FALSE(locked.opens());
        EXPECT_EQ(locked.text_for_file(), text);
    }
}
