// What other programs change in the house labels and the wallet list is noticed, whatever is remembered of them.
#include "kit/wallet_files.h"
#include "platform/files.h"
#include "text/json.h"
#include "wallet_bridge/afresh.h"
#include "wallet_bridge/connect.h"
#include "wallet_bridge/house_labels.h"
#include "wallet_bridge/wallet_identity.h"
#include "wallet_bridge/wallet_list.h"
#include "wallet_bridge/wallet_state.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

const char* const kLabels = "corvane_paymail.json";
const char* const kList = "wallets.json";
const char* const kOlder = "userinfo/corvane_paymail.json";  // in the current directory

const std::string kAnn = R"({"names":{"ann":{"pubkey":"02ab"}},"self":"ann"})";
const std::string kBob = R"({"names":{"bob":{"pubkey":"02ab"}},"self":"bob"})";
const std::string kTaken = R"({"names":{"ann":{"pubkey":"03cd"}},"self":"ann"})";

// The labels in the file, which is old enough to be known from now on.
class KnownLabels : public testing::Test {
protected:
    KnownLabels() { put(kAnn); }
    void put(const std::string& text) const
    {
        folder.write(kLabels, text);
        folder.age(kLabels);
    }
    void know() const { ASSERT_EQ(house_label_of("02ab"), "ann"); }

    TestFolder folder;
};

class KnownName : public testing::Test {
protected:
    KnownName() { put("ann"); }
    void put(const std::string& name, const std::string& file = kList) const
    {
        folder.write(file, R"({"wallets":[{"id":"1","name":")" + name + R"("}]})");
        folder.age(file);
    }
    void know() const
    {
        set_registry_name_from_paymail("1", "ann");
        ASSERT_EQ(wallet_state().listed_name.copy().name, "ann");
    }
    std::string name() const { return wallet_display_name("1"); }

    TestFolder folder;
};

}  // namespace

TEST_F(KnownLabels, AChangeOfTheSameSizeIsNoticed)
{
    ASSERT_EQ(kAnn.size(), kBob.size());
    know();
    folder.write(kLabels, kBob);
    EXPECT_EQ(house_label_of("02ab"), "bob");
    folder.write(kLabels, kAnn);  // while the time of the file system may not have gone on
    EXPECT_EQ(house_label_of("02ab"), "ann");
}

TEST_F(KnownLabels, AFileThatIsOlderThanTheKnownOneIsNoticed)
{
    know();
    put(kBob);
    folder.age(kLabels);
    EXPECT_EQ(house_label_of("02ab"), "bob");
}

TEST_F(KnownLabels, ALabelThatAnotherKeyTakesBetweenTwoQueriesIsRefused)
{
    EXPECT_EQ(register_house_label("ann", "02ab", {}), "");
    know();
    folder.write(kLabels, kTaken);
    EXPECT_NE(register_house_label("ann", "02ab", {}), "");
    EXPECT_EQ(folder.read(kLabels), kTaken);
}

TEST_F(KnownLabels, ALabelThatAnotherKeyGivesUpBetweenTwoQueriesIsTaken)
{
    put(kTaken);
    EXPECT_NE(register_house_label("ann", "02ab", {}), "");
    put(R"({"names":{"zoe":{"pubkey":"03cd"}},"self":"zoe"})");
    EXPECT_EQ(register_house_label("ann", "02ab", {}), "");
    EXPECT_EQ(house_label_of("02ab"), "ann");
}

TEST_F(KnownLabels, AFileThatIsGoneIsNoticedAndSoIsOneThatIsBack)
{
    know();
    ASSERT_TRUE(rename_file(folder.data() + "/" + kLabels, folder.data() + "/aside"));
    EXPECT_EQ(house_label_of("02ab"), "");
    EXPECT_EQ(house_label_of("02ab"), "");
    ASSERT_TRUE(rename_file(folder.data() + "/aside", folder.data() + "/" + kLabels));
    EXPECT_EQ(house_label_of("02ab"), "ann");
}

TEST_F(KnownLabels, AFolderInThePlaceOfTheFileIsNoticed)
{
    know();
    ASSERT_TRUE(remove_file(folder.data() + "/" + kLabels));
    ASSERT_TRUE(create_folders(folder.data() + "/" + kLabels));
    EXPECT_EQ(register_house_label("ann", "02ab", {}), kHouseLabelsUnreadable);
    EXPECT_EQ(house_label_of("02ab"), "");
}

TEST_F(KnownLabels, TheOlderLocationIsNoticedAsSoonAsItHoldsSomething)
{
    ASSERT_TRUE(remove_file(folder.data() + "/" + kLabels));
    const std::string path = folder.path() + "/Corvane";
    std::filesystem::current_path(std::u8string(path.begin(), path.end()));
    EXPECT_EQ(house_label_of("02ab"), "");
    EXPECT_EQ(house_label_of("02ab"), "");
    folder.write(kOlder, kAnn);
    EXPECT_EQ(house_label_of("02ab"), "ann");
    EXPECT_TRUE(folder.has(kLabels));
    std::filesystem::current_path(std::filesystem::temp_directory_path());
}

TEST_F(KnownLabels, AnUnbindForgetsThem)
{
    know();
    EXPECT_EQ(disconnect_wallet(), "success");
    EXPECT_EQ(wallet_state().house_labels.copy().document, nlohmann::json::object());
}

TEST_F(KnownLabels, AfreshNothingIsKnown)
{
    know();
    EXPECT_NE(wallet_state().house_labels.copy().document, nlohmann::json::object());
    start_wallet_state_afresh();
    EXPECT_EQ(wallet_state().house_labels.copy().document, nlohmann::json::object());
}

TEST_F(KnownName, AListThatIsMovedOverTheKnownOneIsNoticed)
{
    know();
    put("bob", "wallets.json.tmp");
    folder.age("wallets.json.tmp");
    ASSERT_TRUE(replace_file(folder.data() + "/wallets.json.tmp", folder.data() + "/" + kList));
    set_registry_name_from_paymail("1", "ann");
    EXPECT_EQ(name(), "ann");
}

TEST_F(KnownName, ARewriteOfTheSameSizeIsNoticed)
{
    know();
    folder.write(kList, R"({"wallets":[{"id":"1","name":"bob"}]})");
    set_registry_name_from_paymail("1", "ann");
    EXPECT_EQ(name(), "ann");
}

TEST_F(KnownName, IsOfOneWalletAndOnePaymail)
{
    folder.write(kList, R"({"wallets":[{"id":"1","name":"ann"},{"id":"2","name":"zoe"}]})");
    folder.age(kList);
    know();
    set_registry_name_from_paymail("2", "ann");
    EXPECT_EQ(wallet_display_name("2"), "ann");
    folder.age(kList);
    know();
    set_registry_name_from_paymail("1", "bob");
    EXPECT_EQ(name(), "bob");
}

TEST_F(KnownName, AnUnbindForgetsIt)
{
    know();
    EXPECT_EQ(disconnect_wallet(), "success");
    EXPECT_EQ(wallet_state().listed_name.copy().name, "");
}

TEST_F(KnownName, AfreshItIsNotKnown)
{
    know();
    start_wallet_state_afresh();
    EXPECT_EQ(wallet_state().listed_name.copy().name, "");
}

TEST_F(KnownName, OfAWalletThatTheListLosesIsNoticed)
{
    know();
    ASSERT_TRUE(remove_file(folder.data() + "/" + kList));
    set_registry_name_from_paymail("1", "ann");
    put("bob");
    set_registry_name_from_paymail("1", "ann");
    EXPECT_EQ(name(), "ann");
}
