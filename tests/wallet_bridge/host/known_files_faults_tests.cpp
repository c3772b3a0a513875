// What is remembered of the house labels and the wallet list when files are opened, fail or change in between.
#include "kit/stand_in/native_path.h"
#include "kit/stand_in/stand_in.h"
#include "kit/test_folder.h"
#include "platform/files.h"
#include "text/json.h"
#include "wallet_bridge/house_labels.h"
#include "wallet_bridge/wallet_list.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

const char* const kLabels = "corvane_paymail.json";
const char* const kOlder = "userinfo/corvane_paymail.json";  // in the current directory
const char* const kList = "wallets.json";

const std::string kAnn = R"({"names":{"ann":{"ordAddress":"1O","pubkey":"02ab"}},"self":"ann"})";
const std::string kNamed = R"({"wallets":[{"id":"1","name":"ann"}]})";

class KnownFileFaults : public testing::Test {
protected:
    void put(const char* file, const std::string& text) const
    {
        folder.write(file, text);
        folder.age(file);
    }
    std::string path_of(const char* file) const { return folder.data() + "/" + file; }

    TestFolder folder;
};

// The files that `work` opens.
template <typename Work>
std::vector<std::string> opened_by(Work work)
{
    std::vector<std::string> opened;
    stand_in().files.on_look = [&opened](const std::string& path, FileLook look) {
        if (look == FileLook::opened) opened.push_back(path);
    };
    work();
    stand_in().files.on_look = nullptr;
    return opened;
}

// Does `work` with `meanwhile` done right before the first file is read or written.
template <typename Work, typename Meanwhile>
void with(Meanwhile meanwhile, Work work)
{
    stand_in().files.on_use = [&meanwhile](const std::string&) {
        stand_in().files.on_use = nullptr;
        meanwhile();
    };
    work();
    stand_in().files.on_use = nullptr;
}

void query_labels()
{
    set_house_ord_address("02ab", "1O");
    EXPECT_EQ(register_house_label("ann", "02ab", {}), "");
    EXPECT_EQ(house_label_of("02ab"), "ann");
    EXPECT_NE(register_house_label("ann", "03cd", {}), "");
}

}  // namespace

TEST_F(KnownFileFaults, LabelsThatSayEverythingAlreadyAreOpenedOnce)
{
    put(kLabels, kAnn);
    EXPECT_EQ(opened_by(query_labels), std::vector{path_of(kLabels)});
    EXPECT_EQ(opened_by(query_labels), std::vector<std::string>{});
}

TEST_F(KnownFileFaults, LabelsThatWereJustWrittenAreReadByEveryOperation)
{
    folder.write(kLabels, kAnn);
    query_labels();
    EXPECT_EQ(opened_by(query_labels).size(), 4U);
}

TEST_F(KnownFileFaults, LabelsOfWhichTheStampCannotBeAskedAreReadByEveryOperation)
{
    put(kLabels, kAnn);
    query_labels();
    stand_in().files.stamps_fail = true;
    EXPECT_EQ(opened_by(query_labels).size(), 4U);
}

TEST_F(KnownFileFaults, LabelsThatAreInNeitherPlaceAreLookedForOnce)
{
    const auto query = [] { EXPECT_EQ(house_label_of("02ab"), ""); };
    EXPECT_EQ(opened_by(query), (std::vector{path_of(kLabels), std::string(kOlder)}));
    EXPECT_EQ(opened_by(query), std::vector<std::string>{});
}

TEST_F(KnownFileFaults, AChangeStartsFromWhatTheFileSaysNow)
{
    put(kLabels, kAnn);
    query_labels();
    with([this] { folder.write(kLabels, R"({"names":{"ann":{"pubkey":"02ab"}},"theme":1})"); },
         [] { EXPECT_EQ(register_house_label("bob", "02ab", {}), ""); });
    const auto document = parse_json(folder.read(kLabels));
    EXPECT_EQ(document.value("theme", 0), 1);
    EXPECT_TRUE(document.at("names").contains("bob"));
}

TEST_F(KnownFileFaults, ALabelThatIsTakenRightBeforeItIsWrittenIsRefused)
{
    put(kLabels, R"({"names":{}})");
    EXPECT_EQ(house_label_of("02ab"), "");
    const std::string taken = R"({"names":{"ann":{"pubkey":"03cd"}}})";
    with([&] { folder.write(kLabels, taken); }, [] { EXPECT_NE(register_house_label("ann", "02ab", {}), ""); });
    EXPECT_EQ(folder.read(kLabels), taken);
}

TEST_F(KnownFileFaults, LabelsThatCannotBeReadAreNotRemembered)
{
    put(kLabels, kAnn);
    stand_in().files.reads_fail = true;
    EXPECT_EQ(house_label_of("02ab"), "");
    EXPECT_EQ(register_house_label("ann", "02ab", {}), kHouseLabelsUnreadable);
    stand_in().files.reads_fail = false;
    EXPECT_EQ(house_label_of("02ab"), "ann");
}

TEST_F(KnownFileFaults, LabelsThatBecomeUnreadableAreNotWritten)
{
    put(kLabels, kAnn);
    query_labels();
    stand_in().files.reads_fail = true;
    EXPECT_EQ(register_house_label("bob", "02ab", {}), kHouseLabelsUnreadable);
    stand_in().files.stamps_fail = true;
    EXPECT_EQ(register_house_label("ann", "02ab", {}), kHouseLabelsUnreadable);
    stand_in().files = {};
    EXPECT_EQ(folder.read(kLabels), kAnn);
    EXPECT_EQ(house_label_of("02ab"), "ann");
}

TEST_F(KnownFileFaults, LabelsThatGoBetweenTheStampAndTheReadingAreSeenWhenTheyAreBack)
{
    put(kLabels, kAnn);
    with([this] { ASSERT_TRUE(rename_file(path_of(kLabels), path_of("aside"))); },
         [] { EXPECT_EQ(house_label_of("02ab"), ""); });
    ASSERT_TRUE(rename_file(path_of("aside"), path_of(kLabels)));
    EXPECT_EQ(house_label_of("02ab"), "ann");
}

TEST_F(KnownFileFaults, LabelsThatComeBetweenTheStampAndTheReadingAreNotSeenWhenTheyAreGone)
{
    with([this] { put(kLabels, kAnn); }, [] { EXPECT_EQ(house_label_of("02ab"), "ann"); });
    ASSERT_TRUE(remove_file(path_of(kLabels)));
    EXPECT_EQ(house_label_of("02ab"), "");
}

TEST_F(KnownFileFaults, LabelsOfTheOlderLocationAreWrittenByTheNextQueryWhenTheyCouldNotBe)
{
    std::filesystem::current_path(native_path(folder.path()));
    ASSERT_TRUE(create_folders("userinfo") && create_folders(folder.data()));
    ASSERT_TRUE(write_file(kOlder, kAnn));
    folder.age("../userinfo/corvane_paymail.json");
    stand_in().files.writes_fail = true;
    EXPECT_EQ(house_label_of("02ab"), "ann");
    EXPECT_EQ(house_label_of("02ab"), "ann");
    EXPECT_FALSE(folder.has(kLabels));
    stand_in().files.writes_fail = false;
    EXPECT_EQ(house_label_of("02ab"), "ann");
    EXPECT_EQ(parse_json(folder.read(kLabels)), parse_json(kAnn));
}

TEST_F(KnownFileFaults, AListThatGivesTheNameAlreadyIsNeitherReadNorLockedAgain)
{
    put(kList, kNamed);
    const auto name = [] { set_registry_name_from_paymail("1", "ann"); };
    EXPECT_EQ(opened_by(name), (std::vector{path_of("wallets.lock"), path_of(kList)}));
    EXPECT_EQ(opened_by(name), std::vector<std::string>{});
    stand_in().files.stamps_fail = true;
    EXPECT_EQ(opened_by(name).size(), 2U);
}

TEST_F(KnownFileFaults, AListThatCannotBeReadIsNotRemembered)
{
    put(kList, R"({"wallets":[{"id":"1","name":"bob"}]})");
    stand_in().files.reads_fail = true;
    set_registry_name_from_paymail("1", "ann");
    stand_in().files.reads_fail = false;
    set_registry_name_from_paymail("1", "ann");
    EXPECT_EQ(wallet_display_name("1"), "ann");
}

TEST_F(KnownFileFaults, AListThatCouldNotBeWrittenIsTriedAgain)
{
    put(kList, R"({"wallets":[{"id":"1","name":"bob"}]})");
    stand_in().files.replaces_fail = true;
    set_registry_name_from_paymail("1", "ann");
    stand_in().files.replaces_fail = false;
    set_registry_name_from_paymail("1", "ann");
    EXPECT_EQ(wallet_display_name("1"), "ann");
}

TEST_F(KnownFileFaults, AListThatChangesBetweenTheStampAndTheReadingIsReadAgain)
{
    put(kList, kNamed);
    with([this] { put(kList, R"({"wallets":[{"id":"1","name":"ann"},{"id":"2","name":"ann"}]})"); },
         [] { set_registry_name_from_paymail("1", "ann"); });
    EXPECT_EQ(opened_by([] { set_registry_name_from_paymail("1", "ann"); }).size(), 2U);
}
