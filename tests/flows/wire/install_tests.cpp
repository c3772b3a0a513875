#include "flows/install.h"

#include "kit/stand_in/stand_in.h"
#include "kit/test_folder.h"
#include "kit/wire/net_test.h"
#include "kit/wire/owned_site.h"
#include "plugin/package.h"

namespace {

constexpr char kZip[] = "payname/brasslet.zip";
constexpr char kOnTheSite[] = "Plugin is on the site.";
constexpr char kUploadOver[] = "Brasslet.zip is selected in the folder that opened. Upload it over the plugin already "
                               "there. This one sends the login in the form.";
constexpr char kUpload[] =
    "Brasslet.zip is selected in the folder that opened. Upload it, activate it, then press Install plugin again.";
constexpr char kNotWritten[] = "Could not write the plugin.";

class Installing : public NetTest {
protected:
    Installing() { stand_in().resource = "<?php // the plugin"; }
    std::string sentence()
    {
        return install_sentence(settings, [this] {
            ++times_shown;
            is_written_before_it_is_shown = folder.has(kZip);
            return folder_opens;
        });
    }
    void expect_package(const std::string& expected)
    {
        times_shown = 0;
        is_written_before_it_is_shown = false;
        EXPECT_EQ(sentence(), expected);
        EXPECT_EQ(times_shown, 1);
        EXPECT_TRUE(is_written_before_it_is_shown);
    }
    void expect_no_package(const std::string& expected)
    {
        EXPECT_EQ(sentence(), expected);
        EXPECT_EQ(times_shown, 0);
        EXPECT_FALSE(folder.has(kZip));
    }

    TestFolder folder;
    SiteSettings settings = owners_settings();
    bool folder_opens = true;
    int times_shown = 0;
    bool is_written_before_it_is_shown = false;
};

}  // namespace

TEST_F(Installing, NeedsASite)
{
    for (const char* site : {"", "http://brasslet.test", "https://brasslet.test:8443"}) {
        settings.site = site;
        expect_no_package("Add the site in settings.");
    }
    EXPECT_TRUE(server.requests().empty());
}

TEST_F(Installing, StopsWhenTheSiteHasThePlugin)
{
    answer(kStatusPath, kCurrentPlugin);
    expect_no_package(kOnTheSite);
    answer(kStatusPath, kCurrentPlugin, 299);
    expect_no_package(kOnTheSite);
}

TEST_F(Installing, AsksWithoutALoginAndWithoutABody)
{
    answer(kStatusPath, kCurrentPlugin);
    sentence();
    ASSERT_EQ(server.requests().size(), 1U);
    expect_status_question(server.requests()[0]);
    EXPECT_THAT(server.requests()[0], testing::EndsWith("\r\n\r\n"));
}

TEST_F(Installing, AnOlderPluginIsToBeUploadedOver)
{
    answer(kStatusPath, R"({"ok":true})");
    expect_package(kUploadOver);
}

TEST_F(Installing, ASiteWithoutThePluginGetsTheZip)
{
    answer(kStatusPath, R"({"code":"rest_no_route"})", 404);
    expect_package(kUpload);
    answer(kStatusPath, "<html>Log in</html>");
    expect_package(kUpload);
    answer(kStatusPath, kCurrentPlugin, 500);
    expect_package(kUpload);
    answer(kStatusPath, R"({"ok":true})", 500);
    expect_package(kUpload);
}

TEST_F(Installing, ARedirectToALoginPageIsNoPlugin)
{
    server.answer(kStatusPath, redirect_to("https://brasslet.test/login"));
    server.answer("GET /login", Answer{200, "<html>Log in</html>", {}, Fault::none});
    expect_package(kUpload);
    EXPECT_EQ(server.requests().size(), 2U);
}

TEST_F(Installing, ASiteThatCannotBeReachedGetsTheZipToo)
{
    server.answer(kStatusPath, Answer{200, kCurrentPlugin, {}, Fault::cut_body});
    expect_package(kUpload);
    settings.site = "dead.brasslet.test";
    expect_package(kUpload);
}

TEST_F(Installing, NeedsNoLogin)
{
    settings.user.clear();
    settings.pass = {};
    expect_package(kUpload);
}

TEST_F(Installing, TheZipIsWrittenAnewEveryTime)
{
    folder.write(kZip, "an old zip");
    expect_package(kUpload);
    EXPECT_EQ(folder.read(kZip), stored_zip("brasslet/brasslet.php", stand_in().resource));
}

TEST_F(Installing, APluginOfLessThan16BytesIsNone)
{
    stand_in().resource = std::string(15, '<');
    expect_no_package(kNotWritten);
    stand_in().resource = "";
    expect_no_package(kNotWritten);
    stand_in().resource = std::string(16, '<');
    expect_package(kUpload);
}

TEST_F(Installing, SaysThatTheZipCouldNotBeWritten)
{
    stand_in().files.largest_file = 100;
    expect_no_package(kNotWritten);
    stand_in().files.largest_file.reset();
    stand_in().files.writes_fail = true;
    expect_no_package(kNotWritten);
}

TEST_F(Installing, SaysThatTheFolderDidNotOpen)
{
    folder_opens = false;
    expect_package("The zip is saved, and the folder did not open.");
}
