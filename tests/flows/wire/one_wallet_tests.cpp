// A publish and its verification go by one load of the wallet each; what is kept is what was sent.
#include "kit/wire/publishing.h"
#include "kit/wire/verifying.h"

namespace {

constexpr char kOtherKey[] = "0279be667ef9dcbbac55a06295ce870b07029bfcdb2dce28d959f2815b16f81798";
constexpr char kOtherAddress[] = "1BgGZ9tcN4rm9KBzDn7KprQz87SZ26SAMH";

// Counts the reads of the bound wallet's file while it lives.
class CountedLoads {
public:
    CountedLoads()
    {
        stand_in().files.on_use = [this](const std::string& path) {
            m_loads += path.ends_with(kBoundWalletFile) ? 1 : 0;
        };
    }
    CountedLoads(const CountedLoads&) = delete;
    CountedLoads& operator=(const CountedLoads&) = delete;
    ~CountedLoads() { stand_in().files.on_use = nullptr; }

    int loads() const { return m_loads; }

private:
    int m_loads = 0;
};

}  // namespace

TEST_F(Publishing, TheWalletIsLoadedOnceBeforeTheNetworkAndOnceAfterTheSiteHasAnswered)
{
    const CountedLoads counted;
    EXPECT_EQ(publish_sentence(settings), kKept);
    EXPECT_EQ(counted.loads(), 2);
}

TEST_F(Publishing, ANameThatTheSiteDoesNotTakeHasLoadedTheWalletOnce)
{
    const CountedLoads counted;
    answer(kNamePath, "{}", 500);
    EXPECT_EQ(publish_sentence(settings), "The site did not take the name.");
    EXPECT_EQ(counted.loads(), 1);
}

TEST_F(Publishing, AWalletThatMovesOnBetweenItsLoadAndTheRequestIsSentAsItWasLoadedAndNotKept)
{
    stand_in().files.on_use = [this](const std::string& path) {
        if (!path.ends_with("wallets/1/wallet.json")) return;
        stand_in().files.on_use = [this](const std::string&) {
            stand_in().files.on_use = nullptr;
            std::string newer = wallet.text;
            newer.replace(newer.find("[0,0,"), 5, "[0,3,");
            newer.replace(newer.find("\"show\":0"), 8, "\"show\":3");
            wallet.folder.write(kBoundWalletFile, newer);
        };
    };
    expect_sentence("That site is paying a different address.");
    bool is_sent = false;
    for (const std::string& request : server.requests())
        is_sent = is_sent || (request.starts_with(kNamePath) && request.find(wallet.address) != std::string::npos);
    EXPECT_TRUE(is_sent);
}

TEST_F(Verifying, AnotherWalletThanTheOneThatWasPublishedIsNotKept)
{
    const std::string names = kept_names();
    Verification verification = verify_and_keep(kName, {kOtherKey, wallet.address});
    EXPECT_EQ(verification.message, "That site is not publishing this Vaultry.");
    verification = verify_and_keep(kName, {wallet.key, kOtherAddress});
    EXPECT_EQ(verification.message, "That site is paying a different address.");
    EXPECT_FALSE(verification.is_kept);
    EXPECT_EQ(kept_names(), names);
    EXPECT_TRUE(server.requests().empty());
}

TEST_F(Verifying, TheWalletIsLoadedOnce)
{
    const CountedLoads counted;
    expect_kept();
    EXPECT_EQ(counted.loads(), 1);
}
