// The main window's controls: which of them shows which font, at the start and after the window came to another
// monitor; and the tips of labels that have no room for their text.
#include "app/windows/controls.h"

#include "kit/windows/any_window.h"
#include "kit/windows/drawn_texts.h"
#include "kit/windows/own_window.h"

#include <gtest/gtest.h>

#include <commctrl.h>

#include <map>

namespace {

constexpr int kBody = 16;  // heights of the characters at 96 DPI
constexpr int kSmall = 14;

const std::map<int, int> kHeightsAtCreation = {
    {kConnectButton, kBody},        {kUnbindButton, kBody},  {kSettingsButton, kBody},
    {kHousePaymailCaption, kSmall}, {kHousePaymail, kBody},  {kPaymentAddressCaption, kSmall},
    {kPaymentAddress, kSmall},      {kNameCaption, kSmall},  {kNameField, kBody},
    {kNamePreview, kBody},          {kNameHint, kSmall},     {kKeptNames, kSmall},
    {kInstallButton, kBody},        {kPublishButton, kBody}, {kRemoveButton, kBody},
    {kCloseButton, kBody},          {kStatusLine, kSmall},   {kVersionLabel, kSmall},
};

HFONT font_of(const OwnWindow& window, int id)
{
    return reinterpret_cast<HFONT>(SendMessageW(window.control(id), WM_GETFONT, 0, 0));
}

void expect_font(HFONT font, int height, const std::string& what)
{
    const LOGFONTW described = description(font);
    EXPECT_STREQ(described.lfFaceName, L"Segoe UI") << what;
    EXPECT_EQ(described.lfHeight, -height) << what;
}

const std::wstring kLongSentence = L"Vaultry kept " + std::wstring(64, L'n') + L"@" + std::wstring(60, L'h') +
                                   L".example. Still on the site: " + std::wstring(64, L'o') + L"@" +
                                   std::wstring(60, L'h') + L".example.";

class Tips : public testing::Test {
protected:
    Tips() { put_mouse_away(); }
    Tips(const Tips&) = delete;
    Tips& operator=(const Tips&) = delete;
    ~Tips() override { put_mouse_away(); }

    // What a tip for the label would say; empty: there would be none.
    std::wstring tip_of(int id) const
    {
        NMTTDISPINFOW question{};
        question.hdr = {app_state().tips, static_cast<UINT_PTR>(id), TTN_GETDISPINFOW};
        SendMessageW(window.window(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&question));
        return question.lpszText != nullptr ? question.lpszText : L"nothing";
    }

    const TestFolder folder;
    const OwnWindow window;
};

}  // namespace

TEST(ControlFonts, AtCreationAreThoseOfTheTable)
{
    const TestFolder folder;
    const OwnWindow window;
    for (const auto& [id, height] : kHeightsAtCreation)
        expect_font(font_of(window, id), height, std::to_string(id));
}

TEST(ControlFonts, AfterAChangeOfDpiAreScaledAndThePaymentAddressIsBodyText)
{
    const TestFolder folder;
    const OwnWindow window;
    for (const int dpi : {192, 144}) {
        window.change_dpi(static_cast<unsigned>(dpi), window.rectangle());
        for (const auto& [id, at_creation] : kHeightsAtCreation) {
            if (id == kCloseButton) continue;
            const int height = id == kPaymentAddress ? kBody : at_creation;
            expect_font(font_of(window, id), height * dpi / 96, std::to_string(id) + " at " + std::to_string(dpi));
        }
    }
}

TEST(ControlFonts, TheCloseButtonKeepsItsFirstFontAtEveryDpi)
{
    const TestFolder folder;
    const OwnWindow window;
    HFONT first = font_of(window, kCloseButton);
    for (const unsigned dpi : {192U, 144U, 96U}) {
        window.change_dpi(dpi, window.rectangle());
        EXPECT_EQ(font_of(window, kCloseButton), first) << dpi;
        expect_font(first, kBody, "still a font");
    }
}

TEST(ControlFonts, ThoseOfTheDpiBeforeAreDeleted)
{
    const TestFolder folder;
    const OwnWindow window;
    window.change_dpi(192, window.rectangle());
    HFONT body = font_of(window, kHousePaymail);
    HFONT small_font = font_of(window, kStatusLine);
    HFONT title = app_state().fonts.title.get();
    ASSERT_EQ(GetObjectType(body), static_cast<DWORD>(OBJ_FONT));
    window.change_dpi(144, window.rectangle());
    for (HFONT font : {body, small_font, title})
        EXPECT_EQ(GetObjectType(font), 0U);
}

TEST_F(Tips, SayTheWholeSentenceOfTheStatusLineWhenItIsCutOff)
{
    set_status(kLongSentence);
    EXPECT_EQ(tip_of(kStatusLine), kLongSentence);
    set_status(L"Brasslet.zip is selected in the folder that opened. Upload it over the plugin already there. This one "
               L"sends the login in the form.");
    EXPECT_EQ(tip_of(kStatusLine), L"");
    set_status(L"one\ntwo\nthree\nfour");
    EXPECT_EQ(tip_of(kStatusLine), L"one\ntwo\nthree\nfour");
}

TEST_F(Tips, SayTheWholeTextOfALabelThatEndsInAnEllipsis)
{
    const std::string name = std::string(64, 'n') + "@" + std::string(60, 'h') + ".example";
    for (const int id : {kHousePaymail, kPaymentAddress, kNamePreview, kKeptNames}) {
        set_control_text(id, name);
        EXPECT_EQ(tip_of(id), window.text(id)) << id;
        set_control_text(id, "short");
        EXPECT_EQ(tip_of(id), L"") << id;
    }
}

TEST_F(Tips, TakeAnAmpersandForWhatItIs)
{
    const std::string ampersands(120, '&');
    set_control_text(kKeptNames, ampersands);
    EXPECT_EQ(tip_of(kKeptNames), std::wstring(ampersands.begin(), ampersands.end()));
}

TEST_F(Tips, AreAsWideAsTheirLabelAndStayAsLongAsTheyMay)
{
    for (const int id : {kStatusLine, kKeptNames}) {
        tip_of(id);
        EXPECT_EQ(SendMessageW(app_state().tips, TTM_GETMAXTIPWIDTH, 0, 0), window.place(id).width);
    }
    EXPECT_EQ(SendMessageW(app_state().tips, TTM_GETDELAYTIME, TTDT_AUTOPOP, 0), 0x7FFF);
}

// A timer's message, which another program can send as well, is what they are made by.
TEST_F(Tips, AreMadeOnce)
{
    const HWND made = app_state().tips;
    SendMessageW(window.window(), WM_TIMER, 1, 0);
    EXPECT_EQ(app_state().tips, made);
}

TEST_F(Tips, OneComesWhenTheMouseRestsOnTheLabelWhereverItIsNow)
{
    set_status(kLongSentence);
    SetWindowPos(window.window(), nullptr, 300, 300, 900, 700, SWP_NOZORDER);
    answer_messages();
    RECT place{};
    GetWindowRect(window.control(kStatusLine), &place);
    SetCursorPos(place.left + 60, place.bottom - 4);
    EXPECT_TRUE(comes_true([] { return IsWindowVisible(app_state().tips) != FALSE; }));
}
