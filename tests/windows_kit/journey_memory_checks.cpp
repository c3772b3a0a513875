// What the memory of the program still holds of a login that it has sent over TLS.
#include "windows_kit/expected_controls.h"
#include "windows_kit/journey.h"
#include "windows_kit/machine.h"
#include "windows_kit/memory_search.h"
#include "windows_kit/options.h"

#include <gtest/gtest.h>

namespace {

using Names = std::set<std::string>;

Names found_of_login(const RunningProgram& program)
{
    return found_in_memory(program.process(), secrets_of_login(kSettings.user, kSettings.password));
}

}  // namespace

TEST_F(Journey, LeavesNothingOfTheLoginInMemory)
{
    site().set_state("plugin");
    save(kSettings);
    write_wallet(folder);
    const RunningProgram program;
    EXPECT_EQ(found_of_login(program), Names());
    program.type(L"alice");
    program.press(kPublishButton);
    ASSERT_TRUE(program.shows(kStatusLine, L"Vaultry kept alice@brasslet.test."));
    EXPECT_EQ(found_of_login(program), Names());
}

// Nothing follows the request that could come to lie over what it has left.
TEST_F(Journey, LeavesNothingOfALoginThatWasTheLastToBeSent)
{
    if (is_wine() && !the_options().as_windows)
        GTEST_SKIP() << "Wine's own TLS frees its copy of what it has encrypted as it stands, and only later requests "
                        "come to lie over it.";
    site().set_state("plugin");
    save(kSettings);
    write_one_wallet(folder, published_wallet());  // of which no reply of the site was recorded
    const RunningProgram program;
    program.type(L"alice");
    program.press(kPublishButton);
    ASSERT_TRUE(program.shows(kStatusLine, L"The site did not take the name."));
    EXPECT_EQ(asked_of("brasslet.test").size(), 2U);
    EXPECT_EQ(found_of_login(program), Names());
}
