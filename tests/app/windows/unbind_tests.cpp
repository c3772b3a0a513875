// Unbind through the real window, and a Connect after it. The user of the wallet application is the test itself.
#include "kit/connect_requests.h"
#include "kit/wallet_files.h"
#include "kit/windows/running_program.h"
#include "kit/windows/users_files.h"
#include "platform/text_conversion.h"
#include "wallet/wallet_keys.h"

#include <gtest/gtest.h>

namespace {

constexpr wchar_t kWaits[] = L"Waiting for Vaultry to approve.";
constexpr wchar_t kUnbound[] = L"Unbound. Connect again to pick a wallet in Vaultry.";

// Waits for the program's request, and replies as a user who picks the wallet `id`.
void approve(const TestFolder& folder, const std::string& id)
{
    ASSERT_TRUE(becomes_true([&] { return connect_request_ids(folder).size() == 1; }));
    reply_to_connect_request(folder, (R"({"ok":true,"wallet_id":")" + id + R"("})").c_str());
}

WalletKeys keys_of_shop()
{
    return derive_wallet_keys(SecretText(kPhrase), 5, 0).value();
}

}  // namespace

TEST(Unbind, EmptiesTheCardAndForgetsTheBinding)
{
    const TestFolder folder;
    write_one_wallet(folder, phrase_wallet({{"paymail", "ann"}}));
    const RunningProgram program;
    ASSERT_TRUE(program.text(1010).starts_with(L"ann@"));
    ASSERT_EQ(bind_records(folder), 1U);
    program.press(1002);
    EXPECT_EQ(program.text(1008), kUnbound);
    EXPECT_EQ(program.text(1010), L"Connect Vaultry");
    EXPECT_EQ(program.text(1011), L"Connect Vaultry");
    EXPECT_EQ(program.text(1013), L"");
    EXPECT_EQ(bind_records(folder), 0U);
    EXPECT_TRUE(folder.has("wallets/1/wallet.json"));
}

TEST(Unbind, OfARecordThatCannotBeDeletedHoldsUntilTheNextStartAndSaysSo)
{
    const TestFolder folder;
    write_one_wallet(folder, phrase_wallet());
    const RunningProgram program;
    const UniqueHandle held = held_record(folder);
    ASSERT_TRUE(held);
    program.press(1002);
    EXPECT_EQ(program.text(1008),
              L"Unbound. The file that remembers the wallet could not be deleted: the next start may use it again.");
    EXPECT_EQ(program.text(1011), L"Connect Vaultry");
    program.press(1001);
    EXPECT_EQ(program.text(1008), kWaits);
}

TEST(Unbind, OfARecordThatCannotBeDeletedIsFollowedByAConnectThatSaysWhatItCouldNotWrite)
{
    const TestFolder folder;
    write_one_wallet(folder, phrase_wallet());
    const RunningProgram program;
    const UniqueHandle held = held_record(folder);
    ASSERT_TRUE(held);
    program.press(1002);
    write_two_wallets(folder);
    program.press(1001);
    approve(folder, "2");
    EXPECT_TRUE(program.shows(1008,
                              L"Connected. The file that remembers the wallet could not be written: connect again "
                              L"at the next start."));
    EXPECT_EQ(program.text(1011), widen(keys_of_shop().address));
}

TEST(Unbind, WhenNothingIsBoundSaysTheSame)
{
    const TestFolder folder;
    const RunningProgram program;
    program.press(1002);
    EXPECT_EQ(program.text(1008), kUnbound);
}

TEST(Unbind, IsFollowedByAConnectThatAsksVaultry)
{
    const TestFolder folder;
    write_one_wallet(folder, phrase_wallet());
    const RunningProgram program;
    program.press(1002);
    program.press(1001);
    EXPECT_EQ(program.text(1008), kWaits);
    approve(folder, "1");
    EXPECT_TRUE(program.shows(1008, L"Connected."));
    EXPECT_EQ(program.text(1011).front(), L'1');
}
