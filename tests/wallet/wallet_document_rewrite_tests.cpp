#include "wallet/wallet_document.h"

#include "text/json.h"

#include <gtest/gtest.h>

namespace {

constexpr char kPrivateKey[] = "18e14a7b6a307f426a94f8114701e7c8e774e7f9a47e2c2035db29a206321725";

// As the wallet application could have written it, with members of a later version at every level.
constexpr char kPhraseDocument[] = R"({
  "address": "1CPzotU6B8bjPrx3idw7MRkTXJMZvnruUo",
  "backup": true,
  "contacts": [
    {
      "dest": "anna@corvane.example",
      "note": "Anna",
      "since": 1.70e9
    },
    "a contact of another form"
  ],
  "fee": 0.50,
  "identity": "02ded4e1e697bc768d79dd3f5c95cd56f332fdcf483c2a36933ba6c81d29bcf8b4",
  "later": {
    "big": 123456789012345678901234567890,
    "list": [
      [],
      {},
      -0,
      null
    ]
  },
  "mnemonic": "abandon abandon abandon abandon abandon abandon abandon abandon abandon abandon abandon about",
  "ord_avatar": "picture_0",
  "ord_owned": [
    {
      "amt": "5",
      "created": true,
      "extra": [
        1.0
      ],
      "hidden": false,
      "origin": "o_0",
      "txid": "t",
      "vout": 0
    },
    7
  ],
  "paymail": "anna",
  "recv": [
    1,
    4,
    3,
    4,
    5,
    7,
    8.0
  ],
  "show": 3,
  "version": 2
})";

Wallet wallet_from(const std::string& text)
{
    auto wallet = read_wallet(SecretText(text));
    EXPECT_TRUE(wallet.has_value());
    return wallet ? std::move(*wallet) : Wallet{};
}

std::string rewritten(const std::string& text)
{
    return wallet_text(wallet_from(text)).text();
}

std::string without_blanks(std::string text)
{
    std::erase(text, '\n');
    std::erase(text, ' ');
    return text;
}

std::string phrase_member()
{
    return R"("mnemonic": "abandon abandon abandon abandon abandon abandon abandon abandon abandon abandon abandon about")";
}

}  // namespace

TEST(WalletRewrite, OfAnUnchangedWalletGivesTheSameBytes)
{
    EXPECT_EQ(rewritten(kPhraseDocument), kPhraseDocument);
}

TEST(WalletRewrite, ChangesNothingButTheMemberThatChanged)
{
    Wallet wallet = wallet_from(kPhraseDocument);
    wallet.paymail = "bert";
    std::string expected = kPhraseDocument;
    const std::string before = R"("paymail": "anna")";
    expected.replace(expected.find(before), before.size(), R"("paymail": "bert")");
    EXPECT_EQ(wallet_text(wallet).text(), expected);
}

TEST(WalletRewrite, SetsEveryMemberThatTheProgramKnows)
{
    Wallet wallet = wallet_from(kPhraseDocument);
    wallet.phrase = SecretText("another phrase");
    wallet.backup_confirmed = false;
    wallet.receive_counters = {9, 8, 7, 6, 5, 4};
    wallet.shown = 2;
    wallet.keys.identity_key = "identity";
    wallet.keys.address = "address";
    wallet.picture = "picture_1";
    const auto document = parse_json(wallet_text(wallet).text());
    EXPECT_EQ(document["mnemonic"], "another phrase");
    EXPECT_EQ(document["backup"], false);
    EXPECT_EQ(compact_json(document["recv"]), "[9,8,7,6,5,4,8.0]");
    EXPECT_EQ(document["show"], 2);
    EXPECT_EQ(document["identity"], "identity");
    EXPECT_EQ(document["address"], "address");
    EXPECT_EQ(document["ord_avatar"], "picture_1");
}

TEST(WalletRewrite, CompletesADocumentThatHoldsOnlyAPhrase)
{
    const auto document = parse_json(rewritten("{" + phrase_member() + "}"));
    EXPECT_EQ(document.size(), 8U);
    EXPECT_EQ(document["version"], 2);
    EXPECT_EQ(document["backup"], false);
    EXPECT_EQ(compact_json(document["recv"]), "[0,0,0,0,0,0]");
    EXPECT_EQ(document["show"], 0);
    EXPECT_EQ(document["identity"], "02ded4e1e697bc768d79dd3f5c95cd56f332fdcf483c2a36933ba6c81d29bcf8b4");
    EXPECT_TRUE(document["address"].is_string());
    EXPECT_EQ(compact_json(document["contacts"]), "[]");
}

TEST(WalletRewrite, WritesItsOwnFormatVersion)
{
    for (const char* version : {"0", "1", "2"})
        EXPECT_EQ(parse_json(rewritten("{" + phrase_member() + R"(,"version":)" + version + "}"))["version"], 2);
    EXPECT_EQ(parse_json(rewritten("{" + phrase_member() + "}"))["version"], 2);
}

TEST(WalletRewrite, ADocumentOfANewerFormatIsNotOurs)
{
    for (const char* version : {"3", "18446744073709551616", "2.0", "-1", "\"2\"", "null", "[2]"})
        EXPECT_EQ(rewritten("{" + phrase_member() + R"(,"version":)" + version + "}"), "") << version;
}

TEST(WalletRewrite, ADocumentThatMeansSomethingElseByAMemberIsNotOurs)
{
    for (const char* member :
         {R"("recv":{})", R"("recv":"5")", R"("recv":null)", R"("show":"5")", R"("show":[5])", R"("identity":5)",
          R"("address":{})", R"("paymail":{"name":"anna"})", R"("paymail":null)", R"("ord_avatar":[1])",
          R"("ord_owned":{})", R"("contacts":"none")", R"("priv":5)"})
        EXPECT_EQ(rewritten("{" + phrase_member() + "," + member + "}"), "") << member;
    for (const char* member : {R"("paymail":5)", R"("address":5)", R"("contacts":{})", R"("mnemonic":5)"})
        EXPECT_EQ(rewritten(std::string(R"({"priv":")") + kPrivateKey + "\"," + member + "}"), "") << member;
}

TEST(WalletRewrite, AnyNumberIsAShownCount)
{
    for (const char* number : {"-1", "1.5", "18446744073709551616"})
        EXPECT_NE(rewritten("{" + phrase_member() + R"(,"show":)" + number + "}"), "") << number;
}

TEST(WalletRewrite, LeavesOutWhatIsEmpty)
{
    const auto document =
        parse_json(rewritten("{" + phrase_member() + R"(,"paymail":"","ord_avatar":"","ord_owned":[],"contacts":[]})"));
    EXPECT_FALSE(document.contains("paymail"));
    EXPECT_FALSE(document.contains("ord_avatar"));
    EXPECT_FALSE(document.contains("ord_owned"));
    EXPECT_TRUE(document.contains("contacts"));
}

TEST(WalletRewrite, DropsAPaymailAndAPictureThatAreGone)
{
    Wallet wallet = wallet_from(kPhraseDocument);
    wallet.paymail.clear();
    wallet.picture.clear();
    const auto document = parse_json(wallet_text(wallet).text());
    EXPECT_FALSE(document.contains("paymail"));
    EXPECT_FALSE(document.contains("ord_avatar"));
}

TEST(WalletRewrite, WritesTheLoweredShownCount)
{
    EXPECT_EQ(parse_json(rewritten("{" + phrase_member() + R"(,"recv":[0,10],"show":50})"))["show"], 10);
}

TEST(WalletRewrite, OfASingleKeyWalletSetsItsMembersAndKeepsTheOthers)
{
    const std::string text = without_blanks(rewritten(std::string(R"({"priv":")") + kPrivateKey +
                                                      R"(","address":"old","paymail":"kept","x":1.50,"show":-0})"));
    EXPECT_EQ(text, std::string(R"({"address":"1PMycacnJaSqwwJqjawXBErnLsZ7RkXUAs","contacts":[],"paymail":"kept",)") +
                        R"("priv":")" + kPrivateKey +
                        R"(","pub":"0250863ad64a87ae8a2fe83c1af1a8403cb53f53e486d8511dad8a04887e5b2352",)" +
                        R"("show":-0,"x":1.50})");
}

TEST(WalletRewrite, WithoutASourceBuildsTheWholeDocument)
{
    Wallet wallet = wallet_from("{" + phrase_member() + R"(,"ord_owned":[{"origin":"o"}],"contacts":[{"dest":"d"}]})");
    const auto complete = wallet_text(wallet).text();
    wallet.source.clear();
    const auto built = parse_json(wallet_text(wallet).text());
    EXPECT_EQ(compact_json(built["ord_owned"]), R"([{"created":false,"origin":"o","txid":"","vout":0}])");
    EXPECT_EQ(compact_json(built["contacts"]), R"([{"dest":"d","note":""}])");
    auto others = parse_json(complete);
    others["ord_owned"] = built["ord_owned"];
    others["contacts"] = built["contacts"];
    EXPECT_EQ(built, others);
}

TEST(WalletRewrite, CanBeReadAgain)
{
    Wallet wallet = wallet_from(kPhraseDocument);
    wallet.paymail = "bert \"quoted\" \xc3\xa4";
    const auto again = wallet_from(wallet_text(wallet).text());
    EXPECT_EQ(again.paymail, wallet.paymail);
    EXPECT_EQ(again.keys.private_key.text(), wallet.keys.private_key.text());
}

TEST(WalletRewrite, IsEmptyWhenTheSourceIsNoDocument)
{
    Wallet wallet = wallet_from(kPhraseDocument);
    for (const char* source : {"no document", "[]", "{"}) {
        wallet.source = SecretText(source);
        EXPECT_TRUE(wallet_text(wallet).empty()) << source;
    }
}
