#include "paymail/discovery.h"

#include "text/json.h"

#include <gtest/gtest.h>

namespace {

bool is_checked(const std::string& url)
{
    return discovery_request(url, std::chrono::seconds(12)).check_certificate;
}

}  // namespace

TEST(DiscoveryRequest, ChecksCertificatesOfEveryHostButTheOwnMachine)
{
    EXPECT_FALSE(is_checked("https://localhost/.well-known/bsvalias"));
    EXPECT_FALSE(is_checked("https://127.0.0.1/x"));
    for (const char* url :
         {"https://localhost.example.org/", "https://localhost@evil.example/", "https://127.0.0.1.evil.example/",
          "https://127.0.0.10/", "https://127.0.0.2/", "https://LOCALHOST.example/", "https://LOCALHOST/",
          "https://example.org/", "https://example.org/?https://localhost", "no url", ""})
        EXPECT_TRUE(is_checked(url)) << url;
}

TEST(DiscoveryRequest, PresentsItselfAsTheWalletApplicationAndKeepsToItsTime)
{
    const HttpRequest request = discovery_request("https://example.org/x", std::chrono::milliseconds(11'900));
    EXPECT_EQ(request.url, "https://example.org/x");
    EXPECT_EQ(request.user_agent, "Corvane-Vaultry/0.1");
    EXPECT_EQ(request.transfer_timeout, std::chrono::milliseconds(11'900));
    EXPECT_EQ(request.redirects, 0);
    EXPECT_TRUE(request.pin_wallet_service);
    EXPECT_TRUE(request.headers.empty());
    EXPECT_TRUE(request.body.empty());
    EXPECT_TRUE(request.credentials.empty());
}

namespace {

std::string pki_url(const std::string& document, const std::string& host = "pay.example.org")
{
    return capability_url({host, parse_json(document)}, "pki", {"alice", "example.org"});
}

}  // namespace

TEST(FillTemplate, ReplacesEveryAliasAndEveryDomain)
{
    EXPECT_EQ(fill_template("https://x/{alias}/{alias}@{domain.tld}?d={domain.tld}", "al", "e.org"),
              "https://x/al/al@e.org?d=e.org");
    EXPECT_EQ(fill_template("https://x/{other}/{Alias}/{domain}", "al", "e.org"), "https://x/{other}/{Alias}/{domain}");
    EXPECT_EQ(fill_template("", "al", "e.org"), "");
}

TEST(FillTemplate, ReplacesWhatAReplacementMakes)
{
    EXPECT_EQ(fill_template("{{alias}}", "alias", "e.org"), "alias");
    EXPECT_EQ(fill_template("{al{alias}}", "ias", "e.org"), "ias");
    EXPECT_EQ(fill_template("{{alias}.tld}", "domain", "e.org"), "e.org");
}

TEST(FillTemplate, TakesALongTemplateInOnePass)
{
    std::string marks;
    for (int i = 0; i < 100'000; ++i)
        marks += "{alias}";
    EXPECT_EQ(fill_template(marks, "a", "e.org"), std::string(100'000, 'a'));
}

TEST(UrlIsOnHost, ComparesTheWholeAuthority)
{
    EXPECT_TRUE(url_is_on_host("https://example.org/x", "example.org"));
    EXPECT_TRUE(url_is_on_host("https://example.org", "example.org"));
    EXPECT_TRUE(url_is_on_host("https://example.org/@x:1", "example.org"));
    for (const char* url :
         {"https://example.org:443/x", "https://user@example.org/x", "https://example.org@evil.example/",
          "https://EXAMPLE.org/x", "https://example.org.evil.example/x", "https://www.example.org/",
          "http://example.org/x", "HTTPS://example.org/x", "https://example.org?x", "example.org", "", "https://",
          "https:///example.org"})
        EXPECT_FALSE(url_is_on_host(url, "example.org")) << url;
}

TEST(UrlIsOnHost, AUserIsOnNoHost)
{
    EXPECT_FALSE(url_is_on_host("https://user@example.org/x", "user@example.org"));
}

TEST(CapabilityUrl, IsTheFilledTemplateOnTheHostOrTheDomain)
{
    EXPECT_EQ(pki_url(R"({"pki":"https://pay.example.org/{alias}@{domain.tld}"})"),
              "https://pay.example.org/alice@example.org");
    EXPECT_EQ(pki_url(R"({"pki":"https://example.org/{alias}"})"), "https://example.org/alice");
    EXPECT_EQ(pki_url(R"({"pki":"https://{domain.tld}/id"})"), "https://example.org/id");
}

TEST(CapabilityUrl, IsEmptyOnAnyOtherHost)
{
    EXPECT_EQ(pki_url(R"({"pki":"https://evil.example/{alias}"})"), "");
    EXPECT_EQ(pki_url(R"({"pki":"https://{alias}.example.org/"})"), "");
    EXPECT_EQ(pki_url(R"({"pki":"https://example.org:443/{alias}"})"), "");
    EXPECT_EQ(pki_url(R"({"pki":"http://example.org/{alias}"})"), "");
}

TEST(CapabilityUrl, IsEmptyWithoutATextForTheKey)
{
    for (const char* document : {"{}", R"({"pki":7})", R"({"pki":null})", R"({"pki":["https://example.org"]})",
                                 R"({"PKI":"https://example.org"})", "[]", "\"pki\"", "7", "null", "no json"})
        EXPECT_EQ(pki_url(document), "") << document;
}
