#include "settings/settings_store.h"

#include "kit/test_folder.h"
#include "platform/user_protection.h"
#include "settings/stored_settings.h"
#include "text/ascii.h"
#include "text/clock.h"
#include "text/json.h"

#include <gmock/gmock.h>

#include <array>
#include <filesystem>
#include <vector>

namespace {

// The files beside "ui.json" whose names begin with its own.
std::vector<std::string> damaged_files(const TestFolder& folder)
{
    std::vector<std::string> names;
    const std::string path = folder.path() + "/Corvane/payname";
    for (const auto& entry : std::filesystem::directory_iterator(std::u8string(path.begin(), path.end()))) {
        const std::string name = entry.path().filename().string();
        if (name.starts_with("ui.json.")) names.push_back(name);
    }
    return names;
}

}  // namespace

TEST(SettingsStore, AMalformedFileReadsAsEmptyAndIsReplacedAtTheNextSave)
{
    const TestFolder folder;
    for (const std::string& text : {std::string(), std::string("{\"site\":"), std::string("[]"),
                                    std::string("\"site\""), std::string(8, '\0'), std::string(100'000, '[')}) {
        folder.write("payname/ui.json", text);
        EXPECT_EQ(notice_of_load(), SettingsNotice::damaged);
        const SiteSettings settings = loaded();
        EXPECT_EQ(settings.site + settings.user + settings.pass.in_clear().text() + saved_name(), "");
    }
    EXPECT_EQ(save(settings_with_password(""), "bob"), SettingsNotice::none);
    EXPECT_EQ(loaded().user, "ann");
    EXPECT_EQ(notice_of_load(), SettingsNotice::none);
}

TEST(SettingsStore, ADamagedFileIsKeptBesideBeforeANewOneReplacesIt)
{
    const TestFolder folder;
    folder.write("payname/ui.json", R"({"site":"https://precious.example", "user":)");
    const std::int64_t before = milliseconds_since_epoch();
    save(settings_with_password(""), "bob");
    const auto kept = damaged_files(folder);
    ASSERT_EQ(kept.size(), 1U);
    EXPECT_TRUE(kept[0].starts_with("ui.json.damaged-")) << kept[0];
    EXPECT_GE(std::stoll(kept[0].substr(16)), before);
    EXPECT_LE(std::stoll(kept[0].substr(16)), milliseconds_since_epoch());
    EXPECT_EQ(folder.read("payname/" + kept[0]), R"({"site":"https://precious.example", "user":)");
    save(settings_with_password(""), "carol");
    EXPECT_EQ(damaged_files(folder), kept);
}

TEST(SettingsStore, AFileWithAMemberThatIsNoTextIsDamagedAndKeptBeside)
{
    const TestFolder folder;
    const std::string text = R"({"site":"s","user":{"name":"ann"},"pass":"","alias":"bob"})";
    folder.write("payname/ui.json", text);
    EXPECT_EQ(notice_of_load(), SettingsNotice::damaged);
    save(loaded(), "bob");
    ASSERT_EQ(damaged_files(folder).size(), 1U);
    EXPECT_EQ(folder.read("payname/" + damaged_files(folder)[0]), text);
    EXPECT_EQ(loaded().site, "s");
}

TEST(SettingsStore, ADamagedFileStaysWhereItIsWhenThereIsNothingToSave)
{
    const TestFolder folder;
    folder.write("payname/ui.json", "{damaged");
    EXPECT_EQ(save(loaded(), ""), SettingsNotice::none);
    EXPECT_EQ(folder.read("payname/ui.json"), "{damaged");
    EXPECT_EQ(damaged_files(folder).size(), 0U);
}

TEST(SettingsStore, AMemberThatIsNoTextEndsTheLoadAndWhatWasTakenStays)
{
    const TestFolder folder;
    folder.write("payname/ui.json", R"({"site":"s","user":7,"pass":"","alias":"bob"})");
    EXPECT_EQ(loaded().site, "s");
    EXPECT_EQ(loaded().user, "");
    folder.write("payname/ui.json", R"({"site":null,"user":"u"})");
    EXPECT_EQ(loaded().user, "");
    folder.write("payname/ui.json", R"({"site":"s","user":"u","pass":7})");
    EXPECT_EQ(loaded().user, "u");
}

TEST(SettingsStore, APasswordBehindAMemberThatIsNoTextIsNotTaken)
{
    const TestFolder folder;
    save(settings_with_password(kPassword), "");
    auto document = parse_json(folder.read("payname/ui.json"));
    for (const char* member : {"site", "user"}) {
        auto wrong = document;
        wrong[member] = 7;
        folder.write("payname/ui.json", wrong.dump());
        EXPECT_EQ(loaded().pass.in_clear().text(), "") << member;
    }
    document["alias"] = 7;
    folder.write("payname/ui.json", document.dump());
    EXPECT_EQ(loaded().pass.in_clear().text(), kPassword);
    EXPECT_EQ(saved_name(), "");
}

TEST(SettingsStore, AFailedLoadLeavesTheSettingsAsTheyWere)
{
    const TestFolder folder;
    for (const char* text : {"", "[]", R"({"site":7})"}) {
        folder.write("payname/ui.json", text);
        SiteSettings settings = settings_with_password(kPassword);
        EXPECT_EQ(load_settings(settings), SettingsNotice::damaged) << text;
        EXPECT_EQ(settings.user, "ann") << text;
        EXPECT_EQ(settings.pass.in_clear().text(), kPassword) << text;
    }
}

TEST(SettingsStore, TextAfterTheFirstValueIsNotLookedAt)
{
    const TestFolder folder;
    folder.write("payname/ui.json", R"({"site":"s","alias":"bob"} } garbage [)");
    EXPECT_EQ(loaded().site, "s");
    EXPECT_EQ(saved_name(), "bob");
}

TEST(SettingsStore, APassThatWasNotProtectedHereIsAnEmptyPassword)
{
    const TestFolder folder;
    for (const char* pass : {"", "====", "!!", "cGxhaW4gdGV4dA==", "not base64 of anything protected"}) {
        folder.write("payname/ui.json", nlohmann::json{{"user", "u"}, {"pass", pass}}.dump());
        EXPECT_EQ(loaded().pass.in_clear().text(), "") << pass;
        EXPECT_EQ(loaded().user, "u");
        EXPECT_EQ(notice_of_load(), *pass == '\0' ? SettingsNotice::none : SettingsNotice::password_is_locked) << pass;
    }
}

TEST(SettingsStore, AFolderInTheFilesPlaceStaysAndIsToldOf)
{
    const TestFolder folder;
    folder.write("payname/ui.json/in the way", "");
    EXPECT_EQ(notice_of_load(), SettingsNotice::unreadable);
    EXPECT_EQ(save(settings_with_password(kPassword), "bob"), SettingsNotice::not_saved);
    EXPECT_TRUE(folder.has("payname/ui.json/in the way"));
}
