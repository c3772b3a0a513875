// What the two cards say of a connected wallet, and what the main window does with the result of a connect.
#include "app/windows/cards.h"

#include "app/windows/controls.h"
#include "app/windows/workers.h"
#include "kit/wallet_files.h"
#include "kit/windows/freed_memory.h"
#include "kit/windows/own_window.h"
#include "paymail/kept_names.h"
#include "text/json.h"
#include "wallet_bridge/binding.h"
#include "wallet_bridge/wallet_identity.h"

#include <gtest/gtest.h>

#include <commctrl.h>

#include <cstdint>
#include <memory>
#include <string>

namespace {

int texts_set = 0;

LRESULT CALLBACK count_texts(HWND label, UINT message, WPARAM wparam, LPARAM lparam, UINT_PTR, DWORD_PTR)
{
    if (message == WM_SETTEXT) ++texts_set;
    return DefSubclassProc(label, message, wparam, lparam);
}

class WalletCards : public testing::Test {
protected:
    void bind(const nlohmann::json& more = nlohmann::json::object()) const
    {
        bind_to_wallet(m_folder, phrase_wallet(more));
    }

    static void keep(const std::string& paymail)
    {
        ASSERT_TRUE(keep_payname({paymail, identity_pubkey().value_or(""), wallet_address().value_or("")}));
    }

    void save_name(const std::string& name) const { m_folder.write("payname/ui.json", pretty_json({{"alias", name}})); }

    TestFolder m_folder;
};

class ConnectResult : public testing::Test {
protected:
    std::wstring status_after(const char* result) const
    {
        EXPECT_TRUE(post_text(m_window.window(), MsgConnectResult, std::make_unique<std::string>(result)));
        answer_messages();
        return m_window.text(kStatusLine);
    }

    // Posts a string whose characters can be looked for after it was freed.
    std::uintptr_t post_marked() const
    {
        auto text = std::make_unique<std::string>(kFreedSize, static_cast<char>(kFreedFiller));
        const auto characters = reinterpret_cast<std::uintptr_t>(text->data());
        EXPECT_TRUE(post_text(m_window.window(), MsgConnectResult, std::move(text)));
        EXPECT_TRUE(is_still_there(characters));
        return characters;
    }

    TestFolder m_folder;
    OwnWindow m_window;
};

}  // namespace

TEST_F(WalletCards, ShowTheHousePaymailTheAddressAndTheKeptNames)
{
    bind({{"paymail", "sofia"}});
    keep("ann@example.org");
    keep("zoe@example.org");
    const OwnWindow window;
    EXPECT_EQ(window.text(kHousePaymail), L"sofia@corvane.example");
    const std::string address = wallet_address().value_or("none");
    EXPECT_EQ(window.text(kPaymentAddress), std::wstring(address.begin(), address.end()));
    EXPECT_EQ(window.text(kKeptNames), L"Vaultry kept ann@example.org, zoe@example.org");
}

TEST_F(WalletCards, WithoutAHousePaymailOrKeptNamesSaySo)
{
    bind();
    const OwnWindow window;
    EXPECT_EQ(window.text(kHousePaymail), L"No house paymail yet");
    EXPECT_EQ(window.text(kKeptNames), L"");
}

TEST_F(WalletCards, AskForAConnectionWhenTheWalletIsGone)
{
    bind();
    keep("ann@example.org");
    const OwnWindow window;
    ASSERT_EQ(window.text(kKeptNames), L"Vaultry kept ann@example.org");
    unbind_wallet();
    refresh_wallet_card();
    EXPECT_EQ(window.text(kHousePaymail), L"Connect Vaultry");
    EXPECT_EQ(window.text(kPaymentAddress), L"Connect Vaultry");
    EXPECT_EQ(window.text(kKeptNames), L"");
}

TEST_F(WalletCards, AreGivenNoTextThatTheyShowAlready)
{
    constexpr int kTexts[] = {kHousePaymail, kPaymentAddress, kKeptNames, kNamePreview};
    bind();
    keep("ann@example.org");
    const OwnWindow window;
    for (const int id : kTexts)
        SetWindowSubclass(window.control(id), count_texts, 0, 0);
    const auto refresh = [] {
        texts_set = 0;
        refresh_wallet_card();
        refresh_name_preview();
        return texts_set;
    };
    EXPECT_EQ(refresh(), 0);
    keep("zoe@example.org");
    EXPECT_EQ(refresh(), 1);
    EXPECT_EQ(window.text(kKeptNames), L"Vaultry kept ann@example.org, zoe@example.org");
    for (const int id : kTexts)
        RemoveWindowSubclass(window.control(id), count_texts, 0);
}

TEST_F(WalletCards, APublishedNameWinsOverTheSavedOneInTheField)
{
    bind();
    keep("ann@example.org");
    keep("zoe@example.org");
    save_name("bob");
    const OwnWindow window;
    EXPECT_EQ(window.text(kNameField), L"ann");
}

TEST_F(WalletCards, ANameInTheFieldStaysWhenThereIsNoneToPutThere)
{
    const OwnWindow window;
    SetWindowTextW(window.control(kNameField), L"typed");
    fill_name_field();
    EXPECT_EQ(window.text(kNameField), L"typed");
    save_name("bob");
    fill_name_field();
    EXPECT_EQ(window.text(kNameField), L"bob");
}

TEST_F(WalletCards, ThePreviewTakesTheNameWithoutItsWhiteSpaceAndLeavesTheSettingsAlone)
{
    const OwnWindow window;
    app_state().settings.site = " Example.org ";
    SetWindowTextW(window.control(kNameField), L"\t Ann ");
    refresh_name_preview();
    EXPECT_EQ(window.text(kNamePreview), L"ann@example.org");
    EXPECT_EQ(app_state().settings.site, " Example.org ");
}

TEST_F(ConnectResult, ThatBeginsWithSuccessIsOneWhateverFollows)
{
    EXPECT_EQ(status_after("success"), L"Connected.");
    EXPECT_EQ(status_after("x"), L"x");
    EXPECT_EQ(status_after("successful, more or less"), L"Connected.");
}

TEST_F(ConnectResult, ThatBeginsOtherwiseIsShownAsItIs)
{
    EXPECT_EQ(status_after("Success"), L"Success");
    EXPECT_EQ(status_after(" success"), L" success");
    EXPECT_EQ(status_after("error: no success"), L"error: no success");
    EXPECT_EQ(status_after("%s %n Zo\xC3\xAB"), L"%s %n Zo\x00EB");
}

TEST_F(ConnectResult, ThatIsEmptyIsToldInASentence)
{
    EXPECT_EQ(status_after("success"), L"Connected.");
    EXPECT_EQ(status_after(""), L"Vaultry did not connect.");
}

TEST_F(ConnectResult, IsFreedByTheWindow)
{
    const std::uintptr_t characters = post_marked();
    answer_messages();
    EXPECT_FALSE(is_still_there(characters));
}

TEST_F(ConnectResult, ThatComesTooLateIsFreedWithTheWindow)
{
    const std::uintptr_t characters = post_marked();
    m_window.destroy();
    EXPECT_FALSE(is_still_there(characters));
}
