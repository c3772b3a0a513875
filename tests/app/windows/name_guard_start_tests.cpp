// The name guard of the real program, on sites that never answer until the test lets them fail.
#include "app/windows/controls.h"
#include "kit/test_folder.h"
#include "kit/windows/running_program.h"
#include "kit/windows/stalled_site.h"
#include "kit/windows/users_files.h"
#include "paymail/kept_names.h"
#include "wallet_bridge/binding.h"
#include "wallet_bridge/wallet_identity.h"

#include <gtest/gtest.h>

namespace {

constexpr wchar_t kAsking[] = L"Asking whether the names pay this wallet. It takes a minute at most.";
constexpr wchar_t kNoAnswer[] = L"No answer about ann@example.org. Look whether the site opens and the plugin is "
                                L"active there, or publish again.";
constexpr wchar_t kNoSite[] = L"Add the site in settings. It needs https.";

// A folder in which the program finds a wallet and its kept name.
class KeptName {
public:
    KeptName()
    {
        write_wallet(m_folder);
        bind_at_startup("C:\\Tools\\Brasslet", "Brasslet");
        EXPECT_TRUE(keep_payname({"ann@example.org", public_identity().public_key, public_identity().address}));
    }

private:
    TestFolder m_folder;
};

class GuardOfTheProgram : public testing::Test {
protected:
    const KeptName name;
    StalledSite site{"example.org"};
    const RunningProgram program;
};

}  // namespace

TEST_F(GuardOfTheProgram, AsksAfterEveryStartWithoutHoldingUpTheWindowOrItsEnd)
{
    ASSERT_TRUE(site.is_asked());
    EXPECT_TRUE(program.answers());
    EXPECT_EQ(program.text(kStatusLine), L"");
    EXPECT_EQ(program.close(), 0U);
}

TEST_F(GuardOfTheProgram, APressDuringTheLookOfTheStartIsToldItsResult)
{
    ASSERT_TRUE(site.is_asked());
    click(program.control(kKeptNames));
    EXPECT_TRUE(program.shows(kStatusLine, kAsking));
    EXPECT_FALSE(site.is_asked_again());
    site.close();
    EXPECT_TRUE(program.shows(kStatusLine, kNoAnswer));
}

TEST_F(GuardOfTheProgram, TheKeyboardAsksToo)
{
    ASSERT_TRUE(site.is_asked());
    site.close();
    program.tab_to(program.control(kKeptNames));
    strike(VK_RETURN);
    EXPECT_TRUE(program.shows(kStatusLine, kNoAnswer));
}

TEST_F(GuardOfTheProgram, AfterAFlowAPressIsAnsweredByANewLook)
{
    ASSERT_TRUE(site.is_asked());
    click(program.control(kKeptNames));
    program.press(kPublishButton);
    EXPECT_TRUE(program.shows(kStatusLine, kNoSite));
    program.tab_to(program.control(kKeptNames));
    strike(VK_SPACE);
    EXPECT_TRUE(program.shows(kStatusLine, kAsking));
    site.close();
    EXPECT_TRUE(program.shows(kStatusLine, kNoAnswer));
}
