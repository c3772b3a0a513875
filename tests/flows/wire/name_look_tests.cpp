// Who is asked when: the sites of a look side by side, the names of each one after the other, and when a look ends.
#include "flows/name_guard.h"

#include "kit/wire/guarding.h"
#include "kit/wire/libcurl_seams.h"

#include <atomic>
#include <future>
#include <set>

namespace {

using std::chrono::milliseconds;

constexpr std::chrono::seconds kPatience{10};

// Holds every query for an SRV record until `wanted` sites are asked at the same time.
class Gathering {
public:
    explicit Gathering(std::size_t wanted) : m_wanted(wanted)
    {
        stand_in().during_srv_query = [this] { wait(); };
    }
    Gathering(const Gathering&) = delete;
    Gathering& operator=(const Gathering&) = delete;
    ~Gathering() { stand_in().during_srv_query = nullptr; }

    std::size_t most() const { return m_most; }

private:
    void wait()
    {
        std::unique_lock lock(m_mutex);
        m_most = std::max(m_most, ++m_inside);
        m_changed.notify_all();
        m_changed.wait_for(lock, kPatience, [this] { return m_most >= m_wanted; });
        // One more than may be would come in now.
        m_changed.wait_for(lock, milliseconds(300), [this] { return m_most > m_wanted; });
        --m_inside;
    }

    const std::size_t m_wanted;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::size_t m_inside = 0;
    std::size_t m_most = 0;
};

std::vector<std::string> paths_of(const std::vector<std::string>& requests)
{
    std::vector<std::string> paths;
    for (const std::string& request : requests)
        paths.push_back(request.substr(0, request.find(" HTTP/")));
    return paths;
}

class TwoSites : public Guarding {
protected:
    TwoSites() { other.answer(kDiscoveryPath, Answer{200, discovery_document("other.test"), {}, Fault::none}); }

    HttpsServer other{{"other.test"}, Signer::test_authority, "127.0.0.2"};
};

}  // namespace

TEST_F(Guarding, NamesOfOneSiteAreAskedForOneAfterTheOtherAfterOneDiscovery)
{
    publish(server, "bob@brasslet.test");
    look({kAlice, "bob@brasslet.test"});
    EXPECT_THAT(paths_of(server.requests()),
                testing::ElementsAre(kDiscoveryPath, kPkiPath, kPayPath, kPayPath, "GET /id/bob@brasslet.test",
                                     "POST /pay/bob@brasslet.test", "POST /pay/bob@brasslet.test"));
}

TEST_F(TwoSites, AreAskedOnOneConnectionEach)
{
    publish(server, "bob@brasslet.test");
    publish(other, "zoe@other.test");
    server.keep({100, true});
    other.keep({100, true});
    look({kAlice, "bob@brasslet.test", "zoe@other.test"});
    EXPECT_EQ(server.requests().size(), 7U);
    EXPECT_EQ(server.connections(), 1);
    EXPECT_EQ(other.requests().size(), 4U);
    EXPECT_EQ(other.connections(), 1);
}

TEST_F(TwoSites, EachNameHasItsOwnState)
{
    publish(other, "zoe@other.test");
    publish(server, "bob@brasslet.test");
    destinations(server, "bob@brasslet.test", address_reply(kOtherAddress), "{}");
    const std::vector<LookedAtName> expected = {{kAlice, NameState::pays_wallet},
                                                {"zoe@other.test", NameState::pays_wallet},
                                                {"bob@brasslet.test", NameState::other_address},
                                                {"ann@other.test", NameState::unclear}};
    EXPECT_EQ(look({kAlice, "zoe@other.test", "bob@brasslet.test", "ann@other.test"}), expected);
}

TEST_F(TwoSites, AreAskedSideBySide)
{
    const Gathering both(2);
    look({kAlice, "zoe@other.test", "bob@brasslet.test"});
    EXPECT_EQ(both.most(), 2U);
}

TEST_F(Guarding, NoMoreThanFourSitesAreAskedAtOnce)
{
    const Gathering four(4);
    std::vector<std::string> paymails;
    for (const char* site : {"a", "b", "c", "d", "e", "f", "g", "h", "i"})
        paymails.push_back(std::string("alice@") + site + ".invalid.test");
    look(paymails);
    EXPECT_EQ(four.most(), 4U);
    EXPECT_EQ(stand_in().srv_queries.size(), paymails.size());
}

TEST_F(TwoSites, ASiteThatNeverAnswersKeepsNoOtherOneFromBeingAskedAndTheTimeEndsTheLook)
{
    server.answer(kDiscoveryPath, Answer{200, "", {}, Fault::stall});
    publish(other, "zoe@other.test");
    LookLimits limits;
    limits.whole_time = milliseconds(1'500);
    const auto names = look({kAlice, "zoe@other.test", "bob@brasslet.test"}, limits);
    EXPECT_EQ(names[0].state, NameState::unclear);
    EXPECT_EQ(names[1].state, NameState::pays_wallet);
    EXPECT_EQ(names[2].state, NameState::unclear);
    EXPECT_EQ(server.requests().size(), 1U);
}

TEST_F(Guarding, ASlowNameServerDoesNotHoldTheResultBack)
{
    std::promise<void> result_is_there;
    std::atomic<bool> came_in_time = false;
    stand_in().during_srv_query = [&, there = result_is_there.get_future().share()] {
        came_in_time = there.wait_for(kPatience) == std::future_status::ready;
    };
    LookLimits limits;
    limits.whole_time = milliseconds(50);
    {
        NameLook slow(names({kAlice}), limits);
        EXPECT_EQ(slow.states().front().state, NameState::unclear);
        result_is_there.set_value();
    }
    EXPECT_TRUE(came_in_time);
    EXPECT_TRUE(server.requests().empty());
}

TEST_F(Guarding, TheWholeLookIsBoundedToAMinuteAndEachRequestToWhatIsLeftOfIt)
{
    EXPECT_EQ(LookLimits().whole_time, std::chrono::minutes(1));
    look({kAlice});
    EXPECT_EQ(options_set().at(CURLOPT_TIMEOUT_MS), 12'000);
    LookLimits limits;
    limits.whole_time = milliseconds(9'000);
    publish(server, kAlice);
    EXPECT_EQ(look({kAlice}, limits).front().state, NameState::pays_wallet);
    EXPECT_LE(options_set().at(CURLOPT_TIMEOUT_MS), 9'000);
    EXPECT_GT(options_set().at(CURLOPT_TIMEOUT_MS), 0);
}

TEST_F(Guarding, ALookThatIsNotWantedAnyMoreSendsNoFurtherRequest)
{
    for (std::size_t wanted = 0; wanted < 4; ++wanted) {
        publish(server, kAlice);
        const std::size_t before = server.requests().size();
        LookLimits limits;
        limits.goes_on = [&] { return server.requests().size() < before + wanted; };
        EXPECT_EQ(look({kAlice, "bob@brasslet.test"}, limits).front().state, NameState::unclear);
        EXPECT_EQ(server.requests().size(), before + wanted);
    }
}

TEST_F(Guarding, ALookThatIsNotWantedAnyMoreFollowsNoFurtherRedirect)
{
    server.answer(kDiscoveryPath, redirect_to("/x"));
    LookLimits limits;
    limits.goes_on = [&] { return server.requests().empty(); };
    look({kAlice}, limits);
    EXPECT_EQ(server.requests().size(), 1U);
}

TEST_F(Guarding, ALookThatIsUnwantedFromTheStartAsksNoNameServer)
{
    LookLimits limits;
    limits.goes_on = [] { return false; };
    EXPECT_EQ(look({kAlice}, limits).front().state, NameState::unclear);
    EXPECT_TRUE(stand_in().srv_queries.empty());
}

TEST_F(Guarding, ALookWhoseTimeIsOverAsksNobodyAnyMore)
{
    LookLimits limits;
    limits.whole_time = milliseconds(0);
    EXPECT_EQ(look({kAlice}, limits).front().state, NameState::unclear);
    EXPECT_TRUE(stand_in().srv_queries.empty());
}

TEST_F(Guarding, WithoutNamesNothingIsAsked)
{
    EXPECT_TRUE(look({}).empty());
    EXPECT_TRUE(stand_in().srv_queries.empty());
}
