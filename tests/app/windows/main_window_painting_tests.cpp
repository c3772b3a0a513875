// What the main window paints, what it answers when its controls ask for their colours, and what it asks of its frame.
#include "app/windows/main_window_painting.h"

#include "app/layout.h"
#include "app/windows/controls.h"
#include "kit/test_folder.h"
#include "kit/windows/drawn_texts.h"
#include "kit/windows/own_window.h"
#include "kit/windows/picture.h"
#include "kit/windows/replaced_import.h"
#include "kit/windows/running_program.h"
#include "ui/windows/gdi.h"

#include <gtest/gtest.h>

#include <dwmapi.h>

#include <map>

using SetAttributeFunction = decltype(&DwmSetWindowAttribute);
// NOLINTNEXTLINE(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)
extern "C" SetAttributeFunction __imp_DwmSetWindowAttribute;

namespace {

std::vector<DrawnText> texts_of(const OwnWindow& window)
{
    return drawn_texts([&] { repainted(window.window()); });
}

bool shows_colour(const RunningProgram& program, int x, int y, Colour colour)
{
    return becomes_true([&] { return pixel_of(program.window(), x, y) == colorref(colour); });
}

constexpr COLORREF kText = RGB(244, 240, 250);
constexpr COLORREF kNote = RGB(214, 206, 236);
constexpr COLORREF kCaption = RGB(186, 176, 206);
constexpr COLORREF kCardColour = RGB(54, 38, 88);
constexpr COLORREF kFieldColour = RGB(24, 16, 40);

// A device context that was in use before, as it may well be.
class UsedContext {
public:
    UsedContext() : m_dc(CreateCompatibleDC(nullptr))
    {
        SetTextColor(m_dc, RGB(1, 2, 3));
        SetBkColor(m_dc, RGB(1, 2, 3));
        SetBkMode(m_dc, OPAQUE);
    }
    UsedContext(const UsedContext&) = delete;
    UsedContext& operator=(const UsedContext&) = delete;
    ~UsedContext() { DeleteDC(m_dc); }

    HDC get() const { return m_dc; }

private:
    HDC m_dc;
};

HBRUSH ask(const OwnWindow& window, UINT message, const UsedContext& dc, int id)
{
    return reinterpret_cast<HBRUSH>(SendMessageW(window.window(), message, reinterpret_cast<WPARAM>(dc.get()),
                                                 reinterpret_cast<LPARAM>(window.control(id))));
}

LOGBRUSH description(HBRUSH brush)
{
    LOGBRUSH described{};
    GetObjectW(brush, sizeof described, &described);
    return described;
}

void expect_colours(const OwnWindow& window, UINT message, int id, COLORREF text, COLORREF background)
{
    const UsedContext dc;
    const LOGBRUSH brush = description(ask(window, message, dc, id));
    EXPECT_EQ(GetTextColor(dc.get()), text) << id;
    EXPECT_EQ(GetBkColor(dc.get()), background) << id;
    EXPECT_EQ(brush.lbStyle, static_cast<UINT>(BS_SOLID)) << id;
    EXPECT_EQ(brush.lbColor, background) << id;
}

std::map<DWORD, DWORD> frame_attributes;

HRESULT WINAPI note_attribute(HWND, DWORD attribute, LPCVOID value, DWORD size)
{
    frame_attributes[attribute] = size == sizeof(DWORD) ? *static_cast<const DWORD*>(value) : 0;
    return S_OK;
}

}  // namespace

TEST(Header, HasTheTitleInItsFontColourAndPlace)
{
    const TestFolder folder;
    const OwnWindow window;
    const DrawnText title = find_text(texts_of(window), L"Brasslet");
    EXPECT_EQ(title.place, main_layout(window.client().width, 96).title);
    EXPECT_EQ(title.form, static_cast<UINT>(DT_SINGLELINE | DT_VCENTER));
    EXPECT_EQ(title.colour, RGB(32, 16, 54));
    EXPECT_EQ(title.background_mode, TRANSPARENT);
    EXPECT_STREQ(title.font.lfFaceName, L"Georgia");
    EXPECT_EQ(title.font.lfHeight, -26);
}

TEST(Header, HasTheSubtitleInItsFontColourAndPlace)
{
    const TestFolder folder;
    const OwnWindow window;
    const DrawnText subtitle = find_text(texts_of(window), L"A payment name beside your Vaultry paymail.");
    EXPECT_EQ(subtitle.place, main_layout(window.client().width, 96).subtitle);
    EXPECT_EQ(subtitle.form, static_cast<UINT>(DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS));
    EXPECT_EQ(subtitle.colour, RGB(72, 48, 110));
    EXPECT_EQ(subtitle.background_mode, TRANSPARENT);
    EXPECT_STREQ(subtitle.font.lfFaceName, L"Segoe UI");
    EXPECT_EQ(subtitle.font.lfHeight, -14);
}

TEST(Header, FollowsTheDpi)
{
    const TestFolder folder;
    const OwnWindow window;
    window.change_dpi(144, {0, 0, 1200, 1000});
    const DrawnText title = find_text(texts_of(window), L"Brasslet");
    EXPECT_EQ(title.place, main_layout(window.client().width, 144).title);
    EXPECT_EQ(title.font.lfHeight, -39);
}

TEST(Header, ItsRuleRunsFromItsFirstPixelToItsLastAndIsOnePixelHigh)
{
    const TestFolder folder;
    const OwnWindow window;
    const Picture picture = repainted(window.window());
    for (const int x : {20, 167})
        EXPECT_EQ(picture.at(x, 50), kTitleRule) << x;
    for (const int x : {19, 168})
        EXPECT_NE(picture.at(x, 50), kTitleRule) << x;
    EXPECT_NE(picture.at(100, 49), kTitleRule);
    EXPECT_NE(picture.at(100, 51), kTitleRule);
}

TEST(Cards, HaveRoundCornersAndAnOutlineOfOnePixel)
{
    const TestFolder folder;
    const OwnWindow window;
    const Picture picture = repainted(window.window());
    const MainLayout layout = main_layout(window.client().width, 96);
    for (const Rect& card : {layout.wallet_card, layout.name_card}) {
        EXPECT_EQ(picture.at(card.x, card.y), picture.at(5, card.y));
        EXPECT_EQ(picture.at(card.right() - 1, card.bottom() - 1), picture.at(5, card.bottom() - 1));
        EXPECT_EQ(picture.at(card.x + layout.card_corner / 2, card.y), kCardOutline);
        EXPECT_EQ(picture.at(card.right() - 1, card.middle()), kCardOutline);
        EXPECT_EQ(picture.at(card.right() - 2, card.middle()), kCard);
        EXPECT_EQ(picture.at(card.x + 100, card.bottom() - 1), kCardOutline);
    }
}

TEST(Buttons, DrawTheirLabelsInTheMiddleInTheBodyFont)
{
    const TestFolder folder;
    const OwnWindow window;
    const auto drawn = drawn_texts([&] { repainted(window.control(kPublishButton)); });
    const DrawnText label = find_text(drawn, L"Publish");
    const Rect place = window.place(kPublishButton);
    EXPECT_EQ(label.place, (Rect{0, 0, place.width, place.height}));
    EXPECT_EQ(label.form, static_cast<UINT>(DT_CENTER | DT_VCENTER | DT_SINGLELINE));
    EXPECT_EQ(label.colour, RGB(32, 16, 54));
    EXPECT_EQ(label.background_mode, TRANSPARENT);
    EXPECT_EQ(label.font.lfHeight, -16);
}

TEST(Buttons, ShowInGreyWhenTheyAreDisabled)
{
    const TestFolder folder;
    const OwnWindow window;
    EnableWindow(window.control(kPublishButton), FALSE);
    const auto drawn = drawn_texts([&] { repainted(window.control(kPublishButton)); });
    EXPECT_EQ(find_text(drawn, L"Publish").colour, RGB(120, 110, 140));
}

TEST(Buttons, WhilePressedDrawTheirLabelOnePixelLowerAndToTheRight)
{
    const TestFolder folder;
    const OwnWindow window;
    SendMessageW(window.control(kPublishButton), BM_SETSTATE, TRUE, 0);
    const auto drawn = drawn_texts([&] { repainted(window.control(kPublishButton)); });
    const Rect place = window.place(kPublishButton);
    EXPECT_EQ(find_text(drawn, L"Publish").place, (Rect{1, 1, place.width, place.height}));
    EXPECT_EQ(find_text(drawn, L"Publish").colour, RGB(32, 16, 54));
}

TEST(Buttons, DrawAtMost128CharactersOfTheirLabel)
{
    const TestFolder folder;
    const OwnWindow window;
    SetWindowTextW(window.control(kPublishButton), std::wstring(200, L'x').c_str());
    const auto drawn = drawn_texts([&] { repainted(window.control(kPublishButton)); });
    EXPECT_EQ(find_text(drawn, std::wstring(128, L'x')).text.size(), 128U);
}

TEST(WindowPainting, ItsBackgroundRunsFromTheTopColourToTheBottomColour)
{
    const TestFolder folder;
    const RunningProgram program;
    EXPECT_TRUE(shows_colour(program, 5, 0, kBackgroundTop));
    const COLORREF bottom = pixel_of(program.window(), 5, program.client().height - 1);
    EXPECT_NEAR(GetRValue(bottom), kBackgroundBottom.red, 1);
    EXPECT_NEAR(GetGValue(bottom), kBackgroundBottom.green, 1);
    EXPECT_NEAR(GetBValue(bottom), kBackgroundBottom.blue, 1);
}

TEST(WindowPainting, ItsCardsFieldAndRuleHaveTheirColours)
{
    const TestFolder folder;
    const RunningProgram program;
    const MainLayout layout = main_layout(program.client().width, 96);
    EXPECT_TRUE(shows_colour(program, layout.wallet_card.x + 8, layout.wallet_card.middle(), kCard));
    EXPECT_TRUE(shows_colour(program, layout.wallet_card.x, layout.wallet_card.middle(), kCardOutline));
    EXPECT_TRUE(shows_colour(program, layout.name_card.x + 8, layout.name_card.middle(), kCard));
    EXPECT_TRUE(shows_colour(program, layout.kept_names.right() - 5, layout.kept_names.middle(), kCard));
    EXPECT_TRUE(shows_colour(program, layout.name_field.right() - 20, layout.name_field.middle(), kEditBackground));
    EXPECT_TRUE(shows_colour(program, layout.title_rule.x + 100, layout.title_rule.y, kTitleRule));
}

TEST(ControlColours, OfTheTextsInTheCards)
{
    const TestFolder folder;
    const OwnWindow window;
    for (const int id : {kHousePaymail, kPaymentAddress, kNamePreview})
        expect_colours(window, WM_CTLCOLORSTATIC, id, kText, kCardColour);
    expect_colours(window, WM_CTLCOLORSTATIC, kKeptNames, kNote, kCardColour);
    for (const int id : {kHousePaymailCaption, kPaymentAddressCaption, kNameCaption, kNameHint})
        expect_colours(window, WM_CTLCOLORSTATIC, id, kCaption, kCardColour);
}

TEST(ControlColours, OfTheNameField)
{
    const TestFolder folder;
    const OwnWindow window;
    expect_colours(window, WM_CTLCOLOREDIT, kNameField, kText, kFieldColour);
}

TEST(ControlColours, OfTheStatusLineAndTheVersionLabelLetTheWindowShowThrough)
{
    const TestFolder folder;
    const OwnWindow window;
    for (const int id : {kStatusLine, kVersionLabel}) {
        const UsedContext dc;
        EXPECT_EQ(ask(window, WM_CTLCOLORSTATIC, dc, id), GetStockObject(HOLLOW_BRUSH)) << id;
        EXPECT_EQ(GetTextColor(dc.get()), kText) << id;
        EXPECT_EQ(GetBkMode(dc.get()), TRANSPARENT) << id;
    }
}

TEST(WindowFrame, IsGivenItsColoursAtCreation)
{
    const TestFolder folder;
    frame_attributes.clear();
    const ReplacedImport<SetAttributeFunction> noted(__imp_DwmSetWindowAttribute, note_attribute);
    const OwnWindow window;
    EXPECT_EQ(frame_attributes, (std::map<DWORD, DWORD>{{20, 1},                   // dark mode
                                                        {34, RGB(92, 64, 140)},    // border
                                                        {35, RGB(168, 164, 188)},  // caption
                                                        {36, RGB(32, 16, 54)}}));  // text
}
