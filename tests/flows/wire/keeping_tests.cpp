// The last step of a verification: the row among the kept names on this PC, and what may keep it from being written.
#include "kit/wire/publishing.h"
#include "kit/wire/verifying.h"
#include "paymail/kept_names.h"

namespace {

constexpr char kOthers[] = R"({"names":[{"paymail":"bob@x.org"}]})";

// From the first access to the kept names on, their file and every later one is held by another program.
void hold_the_kept_names()
{
    stand_in().files.on_use = [](const std::string& path) {
        if (path.ends_with(kKeptNames)) stand_in().files.reads_fail = true;
    };
}

}  // namespace

TEST_F(Verifying, ANameThatIsAlreadyKeptIsUpdatedInItsRow)
{
    wallet.folder.write(kKeptNames,
                        R"({"names":[{"paymail":"bob@x.org"},{"paymail":"ALICE@brasslet.test","pubkey":"old",)"
                        R"("address":"old","note":"mine"},{"paymail":"carol@x.org"}]})");
    expect_kept();
    const auto rows = load_paynames();
    ASSERT_EQ(rows.size(), 3U);
    EXPECT_EQ(rows[1], (nlohmann::json{
                           {"paymail", kName}, {"pubkey", wallet.key}, {"address", wallet.address}, {"note", "mine"}}));
}

TEST_F(Verifying, WithoutAFolderForTheFileNothingIsKept)
{
    wallet.folder.write("payname", "a file where the folder should be");
    expect_refused("Could not keep the name on this PC.");
}

TEST_F(Verifying, AFileThatMayNotBeWrittenKeepsItsOtherNames)
{
    wallet.folder.write(kKeptNames, kOthers);
    stand_in().files.writes_fail = true;
    expect_refused("Could not keep the name on this PC.");
    EXPECT_EQ(kept_names(), kOthers);
}

TEST_F(Verifying, AFullDiskKeepsTheOtherNames)
{
    wallet.folder.write(kKeptNames, kOthers);
    stand_in().files.largest_file = sizeof kOthers;
    expect_refused("Could not keep the name on this PC.");
    EXPECT_EQ(kept_names(), kOthers);
}

TEST_F(Verifying, AFileThatCannotBeReadIsNeverWrittenOver)
{
    wallet.folder.write(kKeptNames, kOthers);
    hold_the_kept_names();
    const Verification verification = verify_and_keep(kName, {wallet.key, wallet.address});
    stand_in().files = {};
    EXPECT_FALSE(verification.is_kept);
    EXPECT_EQ(verification.message, "Could not keep the name on this PC.");
    EXPECT_EQ(kept_names(), kOthers);
}

TEST_F(Publishing, ANameThatThisPcCannotKeepIsToldToTheUserAndNotToTheWalletApplication)
{
    wallet.folder.write(kKeptNames, kOthers);
    hold_the_kept_names();
    EXPECT_EQ(publish_sentence(settings), "Could not keep the name on this PC.");
    stand_in().files = {};
    stand_in().files.writes_fail = true;
    EXPECT_EQ(publish_sentence(settings), "Could not keep the name on this PC.");
    EXPECT_EQ(kept_names(), kOthers);
    EXPECT_EQ(stand_in().wallet_app_notices, 0);
}
