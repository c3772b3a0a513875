// What the main window paints itself.
#include "app/layout.h"
#include "kit/windows/drawn_texts.h"
#include "kit/windows/own_window.h"
#include "kit/windows/picture.h"

#include <gtest/gtest.h>

namespace {

std::vector<DrawnText> texts_of(const OwnWindow& window)
{
    return drawn_texts([&] { repainted(window.window()); });
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
    const auto drawn = drawn_texts([&] { repainted(window.control(1006)); });
    const DrawnText label = find_text(drawn, L"Publish");
    const Rect place = window.place(1006);
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
    EnableWindow(window.control(1006), FALSE);
    const auto drawn = drawn_texts([&] { repainted(window.control(1006)); });
    EXPECT_EQ(find_text(drawn, L"Publish").colour, RGB(120, 110, 140));
}

TEST(Buttons, WhilePressedDrawTheirLabelOnePixelLowerAndToTheRight)
{
    const TestFolder folder;
    const OwnWindow window;
    SendMessageW(window.control(1006), BM_SETSTATE, TRUE, 0);
    const auto drawn = drawn_texts([&] { repainted(window.control(1006)); });
    const Rect place = window.place(1006);
    EXPECT_EQ(find_text(drawn, L"Publish").place, (Rect{1, 1, place.width, place.height}));
    EXPECT_EQ(find_text(drawn, L"Publish").colour, RGB(32, 16, 54));
}

TEST(Buttons, DrawAtMost128CharactersOfTheirLabel)
{
    const TestFolder folder;
    const OwnWindow window;
    SetWindowTextW(window.control(1006), std::wstring(200, L'x').c_str());
    const auto drawn = drawn_texts([&] { repainted(window.control(1006)); });
    EXPECT_EQ(find_text(drawn, std::wstring(128, L'x')).text.size(), 128U);
}
