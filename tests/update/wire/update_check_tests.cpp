#include "update/update_check.h"

#include "kit/wire/net_test.h"

namespace {

constexpr char kPage[] = "https://brasslet.test/page";

// The path of redirect `number` between "/page" and the page that announces build 2.
std::string hop(int number)
{
    return "https://brasslet.test/hop" + std::to_string(number);
}

class UpdateCheck : public NetTest {
protected:
    void answer_page(const Answer& answer) { server.answer("GET /page", answer); }

    void answer_page_after(int redirects)
    {
        answer_page(redirect_to(hop(1)));
        for (int i = 1; i < redirects; ++i)
            server.answer("GET /hop" + std::to_string(i), redirect_to(hop(i + 1)));
        server.answer("GET /hop" + std::to_string(redirects), {200, "Current build: 0.002", {}, Fault::none});
    }
};

}  // namespace

TEST_F(UpdateCheck, FindsTheBuildThatThePageAnnounces)
{
    answer_page({200, "<h1>Brasslet</h1>Current build: 0.002", {}, Fault::none});
    EXPECT_EQ(find_newest_build(kPage), 2);
    EXPECT_THAT(server.requests(), testing::ElementsAre("GET /page HTTP/1.1\r\nHost: brasslet.test\r\n"
                                                        "User-Agent: Brasslet/0.001\r\nAccept: */*\r\n\r\n"));
}

TEST_F(UpdateCheck, ReadsThePageOfEveryStatusUpTo399)
{
    for (const int status : {200, 299, 399}) {
        answer_page({status, "Version 9.0", {}, Fault::none});
        EXPECT_EQ(find_newest_build(kPage), 9000) << status;
    }
    for (const int status : {400, 404, 500}) {
        answer_page({status, "Version 9.0", {}, Fault::none});
        EXPECT_EQ(find_newest_build(kPage), -1) << status;
    }
}

TEST_F(UpdateCheck, APageWithoutANumberAnnouncesNothing)
{
    answer_page({200, "", {}, Fault::none});
    EXPECT_EQ(find_newest_build(kPage), -1);
    answer_page({200, std::string("\xFF\0\x01{]", 5), {}, Fault::none});
    EXPECT_EQ(find_newest_build(kPage), -1);
}

TEST_F(UpdateCheck, FollowsFiveRedirectsAndNoSixth)
{
    answer_page_after(5);
    EXPECT_EQ(find_newest_build(kPage), 2);
    answer_page_after(6);
    EXPECT_EQ(find_newest_build(kPage), -1);
}

TEST_F(UpdateCheck, FollowsNoRedirectThatLeavesHttps)
{
    Answer away = redirect_to("http://brasslet.test/hop1");
    away.body = "Version 9.0";
    answer_page(away);
    EXPECT_EQ(find_newest_build(kPage), -1);
    EXPECT_EQ(server.requests().size(), 1U);
}

TEST_F(UpdateCheck, AnAnswerThatDoesNotComeInTimeAnnouncesNothing)
{
    answer_page({200, "Version 9.0", {}, Fault::stall});
    HttpRequest request = page_request(kPage);
    request.transfer_timeout = std::chrono::milliseconds(300);
    EXPECT_EQ(build_in_reply(exchange(request)), -1);
}

TEST_F(UpdateCheck, APageThatEndsTooEarlyAnnouncesNothing)
{
    answer_page({200, "Version 9.0", {}, Fault::cut_body});
    EXPECT_EQ(find_newest_build(kPage), -1);
    answer_page({200, "", {}, Fault::hang_up});
    EXPECT_EQ(find_newest_build(kPage), -1);
}

TEST_F(UpdateCheck, APageThatIsTooLongAnnouncesNothing)
{
    answer_page({200, "Version 9.0" + std::string(kLargestBody, ' '), {}, Fault::none});
    EXPECT_EQ(find_newest_build(kPage), -1);
}

TEST_F(UpdateCheck, NobodyThereAnnouncesNothing)
{
    EXPECT_EQ(find_newest_build("https://dead.brasslet.test/page"), -1);
    EXPECT_EQ(find_newest_build("https://unknown.test/page"), -1);
}

TEST_F(UpdateCheck, AWrongCertificateAnnouncesNothing)
{
    const HttpsServer another({"brasslet.test"}, Signer::test_authority, "127.0.0.2");
    const HttpsServer unsigned_one({"dead.brasslet.test"}, Signer::nobody, "127.0.0.9");
    EXPECT_EQ(find_newest_build("https://other.test/page"), -1);
    EXPECT_EQ(find_newest_build("https://dead.brasslet.test/page"), -1);
    EXPECT_TRUE(another.requests().empty());
    EXPECT_TRUE(unsigned_one.requests().empty());
}
