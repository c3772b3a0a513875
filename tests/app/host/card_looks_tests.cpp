// How often a refresh of the wallet card looks at the disk.
#include "kit/card_looks.h"

#include "app/card_texts.h"
#include "kit/stand_in/stand_in.h"
#include "kit/wallet_files.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

std::string told(const std::string& path, bool is_opened)
{
    return (is_opened ? "opens " : "asks about ") + path;
}

std::vector<std::string> looks_of_a_refresh(const TestFolder& folder)
{
    std::vector<std::string> looks;
    stand_in().files.on_look = [&](const std::string& path, FileLook look) {
        const bool is_shared = path.starts_with(folder.data() + "/");
        looks.push_back(told(is_shared ? path.substr(folder.data().size() + 1) : path, look == FileLook::opened));
    };
    wallet_card_texts();
    stand_in().files.on_look = nullptr;
    return looks;
}

}  // namespace

TEST(CardLooks, AreThreeFilesOpenedAndFourQuestionsWhileNothingHasChanged)
{
    const TestFolder folder;
    bind_to_wallet(folder, phrase_wallet({{"paymail", "sofia"}}));
    folder.write("payname/payname.json", R"({"names":[]})");
    wallet_card_texts();  // writes the label and the wallet's name
    folder.age("corvane_paymail.json");
    folder.age("wallets.json");
    wallet_card_texts();  // reads both once more

    std::vector<std::string> expected;
    for (const CardLook& look : kCardLooks)
        expected.push_back(told(look.path, look.is_opened));
    EXPECT_EQ(looks_of_a_refresh(folder), expected);
}

TEST(CardLooks, OfAWalletWithoutALabelAreAsFewFilesOpened)
{
    const TestFolder folder;
    bind_to_wallet(folder, phrase_wallet());
    wallet_card_texts();
    std::size_t opened = 0;
    for (const std::string& look : looks_of_a_refresh(folder))
        opened += look.starts_with("opens ") ? 1 : 0;
    EXPECT_EQ(opened, 3U);
}
