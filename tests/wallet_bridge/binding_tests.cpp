#include "wallet_bridge/binding.h"

#include "kit/test_folder.h"
#include "platform/files.h"
#include "text/json.h"
#include "wallet_bridge/shared_files.h"
#include "wallet_bridge/wallet_list.h"

#include <gtest/gtest.h>

namespace {

const std::string kInstance = "C:\\Tools\\Brasslet";
const std::string kRecord = "binds/c__tools_brasslet.json";
const std::string kRecordOfOne = "{\n  \"app\": \"Brasslet\",\n  \"instance\": \"C:\\\\Tools\\\\Brasslet\",\n"
                                 "  \"wallet_id\": \"1\"\n}";

void start()
{
    bind_at_startup(kInstance, "Brasslet");
}

}  // namespace

TEST(Binding, TheKeyKeepsSmallLettersAndDigits)
{
    EXPECT_EQ(bind_key("C:\\Tools\\Brasslet"), "c__tools_brasslet");
    EXPECT_EQ(bind_key("."), "_");
    EXPECT_EQ(bind_key(""), "default");
    EXPECT_EQ(bind_key("Zo\xC3\xAB 7/x.Y"), "zo___7_x_y");
}

TEST(Binding, TheKeyOfALongFolderIsItsEnd)
{
    EXPECT_EQ(bind_key(std::string(104, 'a') + std::string(96, 'b')), std::string(96, 'b'));
    EXPECT_EQ(bind_key(std::string(97, 'a')).size(), 96U);
}

TEST(Binding, NothingIsBoundBeforeTheStart)
{
    const TestFolder folder;
    bind_wallet("1");
    unbind_wallet();
    EXPECT_FALSE(wallet_binding().is_initialised);
    EXPECT_EQ(bound_wallet_id(), "");
    EXPECT_EQ(wallet_file_path(bound_wallet_id()), "");
    EXPECT_FALSE(folder.has("binds"));
}

TEST(Binding, WithoutWalletsTheStartBindsNone)
{
    const TestFolder folder;
    start();
    EXPECT_TRUE(wallet_binding().is_initialised);
    EXPECT_EQ(wallet_binding().app, "Brasslet");
    EXPECT_EQ(wallet_binding().instance, kInstance);
    EXPECT_EQ(bound_wallet_id(), "");
    EXPECT_FALSE(folder.has(kRecord));
}

TEST(Binding, AppAndInstanceHaveDefaults)
{
    const TestFolder folder;
    bind_at_startup("", "");
    EXPECT_EQ(wallet_binding().app, "App");
    EXPECT_EQ(wallet_binding().instance, ".");
    EXPECT_EQ(bind_record_path(), folder.data() + "/binds/_.json");
}

TEST(Binding, TheOnlyWalletIsBoundAtTheStart)
{
    const TestFolder folder;
    folder.write("wallets.json", R"({"wallets":[{"id":"1"}]})");
    start();
    EXPECT_EQ(wallet_binding().wallet_id, "1");
    EXPECT_EQ(bound_wallet_id(), "1");
    EXPECT_EQ(wallet_file_path(bound_wallet_id()), folder.data() + "/wallets/1/wallet.json");
    EXPECT_EQ(folder.read(kRecord), kRecordOfOne);
}

TEST(Binding, OfTwoWalletsTheStartBindsNone)
{
    const TestFolder folder;
    folder.write("wallets.json", R"({"wallets":[{"id":"1"},{"id":"2"}]})");
    start();
    EXPECT_EQ(bound_wallet_id(), "");
    EXPECT_EQ(wallet_file_path(bound_wallet_id()), "");
    EXPECT_FALSE(folder.has(kRecord));
}

TEST(Binding, AnOnlyElementWithoutAnIdBindsNothing)
{
    const TestFolder folder;
    for (const char* text : {R"({"wallets":[{}]})", R"({"wallets":["1"]})", R"({"wallets":[{"id":1}]})"}) {
        folder.write("wallets.json", text);
        start();
        EXPECT_EQ(bound_wallet_id(), "") << text;
    }
}

TEST(Binding, TheBindRecordDecidesBeforeTheList)
{
    const TestFolder folder;
    folder.write("wallets.json", R"({"wallets":[{"id":"1"}]})");
    folder.write(kRecord, R"({"wallet_id":"7"})");
    start();
    EXPECT_EQ(wallet_binding().wallet_id, "7");
    EXPECT_EQ(parse_json(folder.read(kRecord))["app"], "Brasslet");
}

TEST(Binding, AnUnreadableBindRecordIsReplaced)
{
    const TestFolder folder;
    folder.write("wallets.json", R"({"wallets":[{"id":"1"}]})");
    for (const char* text : {"", "{", "[]", R"({"wallet_id":7})", R"({"app":"Brasslet"})"}) {
        folder.write(kRecord, text);
        start();
        EXPECT_EQ(folder.read(kRecord), kRecordOfOne) << text;
    }
}

TEST(Binding, TheStartMigratesTheOldLayoutAndBindsItsWallet)
{
    const TestFolder folder;
    folder.write("corvane_vaultry.json", "the wallet");
    start();
    ASSERT_EQ(list_wallets().size(), 1U);
    EXPECT_EQ(bound_wallet_id(), list_wallets()[0].id);
    EXPECT_EQ(read_file(wallet_file_path(bound_wallet_id())), "the wallet");
}

TEST(Binding, AnApprovedWalletIsBoundAndRecorded)
{
    const TestFolder folder;
    start();
    bind_wallet("1");
    EXPECT_EQ(wallet_binding().wallet_id, "1");
    EXPECT_EQ(folder.read(kRecord), kRecordOfOne);
    bind_wallet("");
    EXPECT_EQ(wallet_binding().wallet_id, "1");
}

TEST(Binding, AWalletIsBoundEvenWhenItsRecordCannotBeWritten)
{
    const TestFolder folder;
    folder.write("binds", "in the way");
    start();
    bind_wallet("1");
    EXPECT_EQ(bound_wallet_id(), "1");
    EXPECT_EQ(wallet_file_path(bound_wallet_id()), folder.data() + "/wallets/1/wallet.json");
    EXPECT_EQ(folder.read("binds"), "in the way");
}

TEST(Binding, ARecordIsWrittenOverALongerOne)
{
    const TestFolder folder;
    folder.write(kRecord, R"({"wallet_id":"7","what another version kept":")" + std::string(500, 'x') + "\"}");
    start();
    bind_wallet("1");
    EXPECT_EQ(folder.read(kRecord), kRecordOfOne);
}

TEST(Binding, TheRecordOnDiskCountsWhileItNamesAWallet)
{
    const TestFolder folder;
    start();
    bind_wallet("1");
    folder.write(kRecord, R"({"wallet_id":"2"})");
    EXPECT_EQ(bound_wallet_id(), "2");
    for (const char* text : {"", "[]", R"({"wallet_id":2})", "{}"}) {
        folder.write(kRecord, text);
        EXPECT_EQ(bound_wallet_id(), "1") << text;
    }
    ASSERT_TRUE(remove_file(folder.data() + "/" + kRecord));
    EXPECT_EQ(bound_wallet_id(), "1");
}

TEST(Binding, UnbindingDeletesTheRecord)
{
    const TestFolder folder;
    start();
    bind_wallet("1");
    unbind_wallet();
    EXPECT_EQ(wallet_binding().wallet_id, "");
    EXPECT_TRUE(wallet_binding().is_initialised);
    EXPECT_FALSE(folder.has(kRecord));
    EXPECT_EQ(bound_wallet_id(), "");
}

TEST(Binding, ARestartForgetsTheIdOfBefore)
{
    const TestFolder folder;
    start();
    bind_wallet("1");
    ASSERT_TRUE(remove_file(folder.data() + "/" + kRecord));
    start();
    EXPECT_EQ(bound_wallet_id(), "");
}
