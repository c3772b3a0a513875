#include "net/shared_connections.h"

#include "kit/wire/net_test.h"

#include "build_values.h"

#include <thread>

namespace {

constexpr char kUrl[] = "https://brasslet.test/x";

class Connections : public NetTest {
protected:
    Connections()
    {
        server.keep({100, true});
        answer("GET /x", "here");
    }

    // Sends a request after another; whether both were answered.
    static bool both_are_answered(const HttpRequest& request)
    {
        return exchange(request).body == "here" && exchange(request).body == "here";
    }
    static HttpRequest request()
    {
        HttpRequest made;
        made.url = kUrl;
        return made;
    }
};

}  // namespace

TEST_F(Connections, OfRequestsThatFollowEachOtherAreOne)
{
    const SharedConnections shared;
    EXPECT_TRUE(both_are_answered(request()));
    EXPECT_EQ(server.requests().size(), 2U);
    EXPECT_EQ(server.connections(), 1);
}

TEST_F(Connections, AreTheRequestsOwnWhereNoneAreShared)
{
    EXPECT_TRUE(both_are_answered(request()));
    EXPECT_EQ(server.connections(), 2);
}

TEST_F(Connections, EndWithTheSharing)
{
    {
        const SharedConnections shared;
        EXPECT_EQ(exchange(request()).body, "here");
    }
    const SharedConnections shared;
    EXPECT_EQ(exchange(request()).body, "here");
    EXPECT_EQ(server.connections(), 2);
}

TEST_F(Connections, WithinOthersAreOthersAndThoseComeBack)
{
    const SharedConnections outer;
    EXPECT_EQ(exchange(request()).body, "here");
    void* const shared = SharedConnections::of_this_thread();
    {
        const SharedConnections inner;
        EXPECT_NE(SharedConnections::of_this_thread(), shared);
    }
    EXPECT_EQ(SharedConnections::of_this_thread(), shared);
    EXPECT_EQ(exchange(request()).body, "here");
    EXPECT_EQ(server.connections(), 1);
}

TEST_F(Connections, OfOneThreadAreNoneOfAnothers)
{
    const SharedConnections shared;
    void* others = SharedConnections::of_this_thread();
    std::thread([&others] { others = SharedConnections::of_this_thread(); }).join();
    EXPECT_EQ(others, nullptr);
}

// libcurl keeps a copy of them with the connection.
TEST_F(Connections, ThatCarryCredentialsAreNotShared)
{
    const SharedConnections shared;
    HttpRequest with_login = request();
    with_login.credentials = SecretText("owner:password");
    EXPECT_TRUE(both_are_answered(with_login));
    EXPECT_EQ(server.connections(), 2);
    EXPECT_TRUE(both_are_answered(request()));
    EXPECT_EQ(server.connections(), 3);
}

TEST_F(Connections, ToAPinnedAddressAreNotShared)
{
    const std::string path = std::string("/x?") + kWalletServiceHost;
    answer("GET " + path, "here");
    const SharedConnections shared;
    HttpRequest pinned = request();
    pinned.url = "https://brasslet.test" + path;
    EXPECT_TRUE(both_are_answered(pinned));
    EXPECT_EQ(server.connections(), 1);
    pinned.pin_wallet_service = true;
    EXPECT_TRUE(both_are_answered(pinned));
    EXPECT_EQ(server.connections(), 3);
}

// A certificate that nobody has looked at is none for a request that wants it looked at.
TEST_F(Connections, WhoseCertificateWasNotCheckedServeNoRequestThatChecksIt)
{
    const SharedConnections shared;
    HttpRequest unchecked = request();
    unchecked.check_certificate = false;
    EXPECT_EQ(exchange(unchecked).body, "here");
    EXPECT_EQ(exchange(request()).body, "here");
    EXPECT_EQ(server.connections(), 2);
}

TEST_F(Connections, ThatTheServerHasClosedWithoutAWordAreMadeAnew)
{
    server.keep({1, false});
    const SharedConnections shared;
    EXPECT_TRUE(both_are_answered(request()));
    EXPECT_EQ(server.connections(), 2);
}
