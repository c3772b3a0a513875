// How the plugin package is shown. Nothing is started: what the shell is given is noted.
#include "app/windows/flow_buttons.h"

#include "kit/test_folder.h"
#include "kit/windows/handed_to_shell.h"
#include "platform/text_conversion.h"
#include "platform/windows/shell.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

std::vector<ShellStart> starts_for(const char* site)
{
    const ComApartment apartment;
    const ShellStarts starts;
    show_plugin_upload(site, nullptr);
    return starts.noted();
}

// That Explorer selects the zip; the shell is asked so where it does not show a file by itself, as none that is
// missing.
void expect_zip_selected(const ShellStart& start, const TestFolder& folder)
{
    std::wstring zip = widen(folder.data() + "/payname/brasslet.zip");
    std::ranges::replace(zip, L'/', L'\\');
    EXPECT_EQ(start.second, L"/select,\"" + zip + L"\"");
}

}  // namespace

TEST(ShowingThePackage, SelectsTheZipAndOpensTheUploadPage)
{
    const TestFolder folder;
    const auto starts = starts_for(" Brasslet.TEST/blog/ ");
    ASSERT_EQ(starts.size(), 2U);
    expect_zip_selected(starts[0], folder);
    EXPECT_EQ(starts[1], ShellStart(L"https://brasslet.test/blog/wp-admin/plugin-install.php?tab=upload", L""));
}

TEST(ShowingThePackage, OpensNoPageForAnAddressThatCannotBeUsed)
{
    const TestFolder folder;
    for (const char* site : {"", "http://brasslet.test", "https://brasslet.test:8443"}) {
        const auto starts = starts_for(site);
        ASSERT_EQ(starts.size(), 1U) << site;
        expect_zip_selected(starts[0], folder);
    }
}
