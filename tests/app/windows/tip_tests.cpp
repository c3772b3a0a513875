// What a label has no room for can be read in a tip.
#include "app/windows/controls.h"
#include "kit/windows/keys.h"
#include "kit/windows/own_window.h"

#include <gtest/gtest.h>

#include <commctrl.h>

namespace {

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
