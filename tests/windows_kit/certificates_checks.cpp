// Whom the program talks to. The kit's site has a host for every fault of a certificate, and notes each byte that
// comes through its TLS: of a request to a host that must be refused there may be none.
#include "app/windows/controls.h"
#include "platform/text_conversion.h"
#include "windows_kit/journey.h"
#include "windows_kit/machine.h"
#include "windows_kit/options.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

class Certificates : public Journey {
protected:
    void SetUp() override
    {
        Journey::SetUp();
        if (IsSkipped() || HasFatalFailure()) return;
        site().set_state("plugin");
        write_wallet(folder);
    }

    void expect_refused(const char* host) const
    {
        if (is_wine() && !the_options().as_windows) GTEST_SKIP() << "Wine's TLS accepts every certificate.";
        save({host, kSettings.user, kPassword}, "alice");
        const RunningProgram program;
        program.press(kPublishButton);
        EXPECT_TRUE(program.shows(kPublishButton, L"Publish"));
        EXPECT_EQ(narrow(program.text(kStatusLine)),
                  "Press Install plugin and upload the zip over the one on the site.");
        EXPECT_THAT(site().heard_at(host), testing::ElementsAre("called"));
    }
};

TEST_F(Certificates, OneForAnotherNameIsRefusedBeforeAnythingIsSent)
{
    expect_refused("wrong-name.test");
}

TEST_F(Certificates, AnExpiredOneIsRefusedBeforeAnythingIsSent)
{
    expect_refused("expired.test");
}

TEST_F(Certificates, OneThatIsNotYetValidIsRefusedBeforeAnythingIsSent)
{
    expect_refused("not-yet-valid.test");
}

TEST_F(Certificates, ASelfSignedOneIsRefusedBeforeAnythingIsSent)
{
    expect_refused("self-signed.test");
}

TEST_F(Certificates, OneOfAnUnknownAuthorityIsRefusedBeforeAnythingIsSent)
{
    expect_refused("unknown-authority.test");
}

TEST_F(Certificates, OneWhoseListOfRevokedOnesCannotBeReachedIsAccepted)
{
    save({"list-out-of-reach.test", kSettings.user, kPassword});
    const RunningProgram program;
    program.press(kInstallButton);
    EXPECT_TRUE(program.shows(kStatusLine, L"Plugin is on the site.")) << narrow(program.text(kStatusLine));
}

}  // namespace
