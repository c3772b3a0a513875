#include "paymail/payment_destination.h"

#include <gtest/gtest.h>

namespace {

// The hash160 of the public key of private key 1 and its address, as they are widely published.
constexpr char kHash[] = "751e76e8199196d454941c45d1b3a323f1433bd6";
constexpr char kAddress[] = "1BgGZ9tcN4rm9KBzDn7KprQz87SZ26SAMH";
constexpr char kTooMany[] = "that paymail host asked for too many outputs";
constexpr char kNoAddress[] = "that paymail host did not return a payment address";
constexpr char kOtherAmount[] = "that paymail host returned a different amount";
constexpr char kTwoAddresses[] = "that paymail host returned two different addresses";
// An address that was made up from words, as widely published, and the hash in it.
constexpr char kOtherAddress[] = "1BitcoinEaterAddressDontSendf59kuE";
constexpr char kOtherHash[] = "759d6677091e973b9e9d99f19c68fbf43e3f05f9";

std::string script(const std::string& hash = kHash)
{
    return "76a914" + hash + "88ac";
}

std::string output(const std::string& satoshis, const std::string& script_text = script())
{
    return R"({"satoshis":)" + satoshis + R"(,"script":")" + script_text + "\"}";
}

std::string outputs(const std::string& list)
{
    return R"({"outputs":[)" + list + R"(],"reference":"r"})";
}

std::string error_of(const std::string& body)
{
    const PaymentDestination destination = read_payment_destination(body);
    EXPECT_EQ(destination.error.empty(), !destination.outputs.empty()) << body;
    return destination.error;
}

void expect_paid(const std::string& body)
{
    const auto [read, error] = read_payment_destination(body);
    ASSERT_EQ(error, "") << body;
    ASSERT_EQ(read.size(), 1U);
    EXPECT_EQ(read[0].address, kAddress);
    EXPECT_EQ(read[0].satoshis, 1);
}

std::string repeated(const std::string& text, int times)
{
    std::string list = text;
    for (int i = 1; i < times; ++i)
        list += "," + text;
    return list;
}

}  // namespace

TEST(PaymentDestination, IsOneOutputOfOneSatoshi)
{
    expect_paid(outputs(output("1")));
    expect_paid(outputs(output("1", "76A914751E76E8199196D454941C45D1B3A323F1433BD688AC")));
}

TEST(PaymentDestination, AReplyThatIsNoObjectHasNone)
{
    for (const char* body : {"", "<html>", "[]", "7", "null", "\"x\"", "{", "{}", "{} x", "{\"address\":\"\xff\"}"})
        EXPECT_EQ(error_of(body), kNoAddress) << body;
    EXPECT_EQ(error_of(std::string(10'000, '[')), kNoAddress);
}

TEST(PaymentDestination, TwentyOutputsAreReadAndTwentyOneAreNot)
{
    EXPECT_EQ(error_of(outputs(repeated(output("1"), 20))), kOtherAmount);
    EXPECT_EQ(error_of(outputs(repeated(output("1"), 21))), kTooMany);
    EXPECT_EQ(error_of(outputs(repeated("7", 21))), kTooMany);
}

TEST(PaymentDestination, AnOutputThatIsNoObjectHasNoAddress)
{
    EXPECT_EQ(error_of(outputs("7")), kNoAddress);
    EXPECT_EQ(error_of(outputs(output("2") + ",null")), kNoAddress);
}

TEST(PaymentDestination, TwoOutputsOfOneSatoshiAreADifferentAmount)
{
    EXPECT_EQ(error_of(outputs(repeated(output("1"), 2))), kOtherAmount);
}

TEST(PaymentDestination, NoOutputsAreADifferentAmount)
{
    EXPECT_EQ(error_of(outputs("")), kOtherAmount);
}

TEST(PaymentDestination, AnythingButTheWholeNumberOneIsADifferentAmount)
{
    for (const char* satoshis : {"0",
                                 "2",
                                 "-1",
                                 "-9223372036854775808",
                                 "9223372036854775807",
                                 "9223372036854775808",
                                 "9223372036854775809",
                                 "18446744073709551615",
                                 "18446744073709551616",
                                 "18446744073709551617",
                                 "1e400",
                                 "1.0",
                                 "1.5",
                                 "0.1",
                                 "true",
                                 "false",
                                 "null",
                                 "\"1\"",
                                 "[1]",
                                 "{}"})
        EXPECT_NE(error_of(outputs(output(satoshis))), "") << satoshis;
    EXPECT_EQ(error_of(outputs(output("2"))), kOtherAmount);
    EXPECT_EQ(error_of(outputs(output("0"))), kOtherAmount);
    EXPECT_EQ(error_of(outputs(R"({"script":")" + script() + "\"}")), kOtherAmount);
}

TEST(PaymentDestination, TheAmountIsCheckedBeforeTheScript)
{
    EXPECT_EQ(error_of(outputs(output("2", "zz"))), kOtherAmount);
    EXPECT_EQ(error_of(outputs(output("1", "zz") + "," + output("1"))), kNoAddress);
}

TEST(PaymentDestination, OnlyAPayToPublicKeyHashScriptHasAnAddress)
{
    const std::string pay_to_public_key =
        "21" + std::string("0279be667ef9dcbbac55a06295ce870b07029bfcdb2dce28d959f2815b16f81798") + "ac";
    ASSERT_EQ(pay_to_public_key.size(), 70U);
    for (const std::string& other :
         {pay_to_public_key, std::string(), script().substr(2), script() + "00", script().substr(0, 49),
          "77" + script().substr(2), "76aa14" + std::string(kHash) + "88ac", "76a913" + std::string(kHash) + "88ac",
          "76a914" + std::string(kHash) + "87ac", "76a914" + std::string(kHash) + "88ad", "zz" + script().substr(2),
          " " + script()})
        EXPECT_EQ(error_of(outputs(output("1", other))), kNoAddress) << other;
    EXPECT_EQ(error_of(outputs(R"({"satoshis":1})")), kNoAddress);
    EXPECT_EQ(error_of(outputs(R"({"satoshis":1,"script":7})")), kNoAddress);
}

TEST(PaymentDestination, MayBeASingleScript)
{
    expect_paid(R"({"output":")" + script() + "\"}");
    expect_paid(R"({"outputs":"none","output":")" + script() + "\"}");
    EXPECT_EQ(error_of(R"({"output":"00"})"), kNoAddress);
    EXPECT_EQ(error_of(R"({"output":7})"), kNoAddress);
    EXPECT_EQ(error_of(R"({"output":null,"address":")" + std::string(kAddress) + "\"}"), kNoAddress);
}

TEST(PaymentDestination, MayBeAnAddress)
{
    expect_paid(R"({"address":")" + std::string(kAddress) + "\"}");
    EXPECT_EQ(error_of(R"({"address":"1BgGZ9tcN4rm9KBzDn7KprQz87SZ26SAMJ"})"), kNoAddress);
    EXPECT_EQ(error_of(R"({"address":""})"), kNoAddress);
    EXPECT_EQ(error_of(R"({"address":7})"), kNoAddress);
}

TEST(PaymentDestination, AListOfOutputsComesBeforeAnAddress)
{
    EXPECT_EQ(error_of(R"({"outputs":[],"address":")" + std::string(kAddress) + "\"}"), kOtherAmount);
}

TEST(PaymentDestination, AScriptAndAnAddressSayTheSame)
{
    const auto both = [](const std::string& hash, const std::string& address) {
        return R"({"address":")" + address + R"(","output":")" + script(hash) + "\"}";
    };
    expect_paid(both(kHash, kAddress));
    EXPECT_EQ(error_of(both(kHash, kOtherAddress)), kTwoAddresses);
    EXPECT_EQ(error_of(both(kOtherHash, kAddress)), kTwoAddresses);
    EXPECT_EQ(error_of(both(kHash, "")), kTwoAddresses);
    expect_paid(R"({"address":null,"output":")" + script() + "\"}");
}

TEST(Payee, IsTheWalletOfARightReply)
{
    for (const std::string& body :
         {R"({"address":")" + std::string(kAddress) + "\"}", R"({"output":")" + script() + "\"}", outputs(output("1"))})
        EXPECT_EQ(payee_of(body, kAddress), Payee::wallet) << body;
}

TEST(Payee, IsAnotherAddressWhateverTheOtherMembersSay)
{
    const std::string other = R"("address":")" + std::string(kOtherAddress) + "\"";
    for (const std::string& body :
         {"{" + other + "}", "{" + other + R"(,"output":")" + script() + "\"}", "{" + other + R"(,"outputs":[]})"})
        EXPECT_EQ(payee_of(body, kAddress), Payee::other_address) << body;
}

TEST(Payee, IsAnotherOutputWhateverFormItHasAndWhateverTheOtherMembersSay)
{
    const std::string right = R"("address":")" + std::string(kAddress) + "\"";
    const std::string to_key = "21" + std::string(66, '2') + "ac";
    for (const std::string& other : {script(kOtherHash), to_key, std::string("51")}) {
        EXPECT_EQ(payee_of(R"({"output":")" + other + "\"}", kAddress), Payee::other_output);
        EXPECT_EQ(payee_of("{" + right + R"(,"output":")" + other + "\"}", kAddress), Payee::other_output);
        EXPECT_EQ(payee_of(outputs(output("1", other)), kAddress), Payee::other_output);
        EXPECT_EQ(payee_of(outputs(output("1") + "," + output("1", other)), kAddress), Payee::other_output);
    }
}

TEST(Payee, OfAReplyThatNamesNobodyIsUnclear)
{
    for (const std::string& body :
         {std::string(), std::string("<html>"), std::string("[]"), std::string("{}"), std::string("null"),
          std::string(R"({"address":"1BgGZ9tcN4rm9KBzDn7KprQz87SZ26SAMJ"})"), std::string(R"({"address":7})"),
          std::string(R"({"output":7})"), std::string(R"({"output":"zz"})"), std::string(R"({"output":""})"),
          outputs(""), outputs("7"), outputs(output("1") + "," + output("1")), std::string(10'000, '[')})
        EXPECT_EQ(payee_of(body, kAddress), Payee::unclear) << body.substr(0, 60);
}
