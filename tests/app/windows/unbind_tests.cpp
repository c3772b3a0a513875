// Unbind through the real window, and a Connect after it. The user of the wallet application is the test itself.
#include "app/windows/controls.h"
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
    ASSERT_TRUE(program.text(kHousePaymail).starts_with(L"ann@"));
    ASSERT_EQ(bind_records(folder), 1U);
    program.press(kUnbindButton);
    EXPECT_EQ(program.text(kStatusLine), kUnbound);
    EXPECT_EQ(program.text(kHousePaymail), L"Connect Vaultry");
    EXPECT_EQ(program.text(kPaymentAddress), L"Connect Vaultry");
    EXPECT_EQ(program.text(kKeptNames), L"");
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
    program.press(kUnbindButton);
    EXPECT_EQ(program.text(kStatusLine),
              L"Unbound. The file that remembers the wallet could not be deleted: the next start may use it again.");
    EXPECT_EQ(program.text(kPaymentAddress), L"Connect Vaultry");
    program.press(kConnectButton);
    EXPECT_EQ(program.text(kStatusLine), kWaits);
}

TEST(Unbind, OfARecordThatCannotBeDeletedIsFollowedByAConnectThatSaysWhatItCouldNotWrite)
{
    const TestFolder folder;
    write_one_wallet(folder, phrase_wallet());
    const RunningProgram program;
    const UniqueHandle held = held_record(folder);
    ASSERT_TRUE(held);
    program.press(kUnbindButton);
    write_two_wallets(folder);
    program.press(kConnectButton);
    approve(folder, "2");
    EXPECT_TRUE(program.shows(kStatusLine,
                              L"Connected. The file that remembers the wallet could not be written: connect again "
                              L"at the next start."));
    EXPECT_EQ(program.text(kPaymentAddress), widen(keys_of_shop().address));
}

TEST(Unbind, WhenNothingIsBoundSaysTheSame)
{
    const TestFolder folder;
    const RunningProgram program;
    program.press(kUnbindButton);
    EXPECT_EQ(program.text(kStatusLine), kUnbound);
}

TEST(Unbind, IsFollowedByAConnectThatAsksVaultry)
{
    const TestFolder folder;
    write_one_wallet(folder, phrase_wallet());
    const RunningProgram program;
    program.press(kUnbindButton);
    program.press(kConnectButton);
    EXPECT_EQ(program.text(kStatusLine), kWaits);
    approve(folder, "1");
    EXPECT_TRUE(program.shows(kStatusLine, L"Connected."));
    EXPECT_EQ(program.text(kPaymentAddress).front(), L'1');
}
