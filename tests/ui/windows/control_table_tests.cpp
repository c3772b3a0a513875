#include "ui/windows/control_table.h"

#include "kit/windows/drawn_texts.h"

#include <gtest/gtest.h>

namespace {

void expect_made_for(const Fonts& fonts, int body, int small_font, int title)
{
    const LOGFONTW of_body = description(fonts.body.get());
    const LOGFONTW of_small = description(fonts.small.get());
    const LOGFONTW of_title = description(fonts.title.get());
    EXPECT_EQ(of_body.lfHeight, -body);
    EXPECT_EQ(of_small.lfHeight, -small_font);
    EXPECT_EQ(of_title.lfHeight, -title);
    for (const LOGFONTW& font : {of_body, of_small, of_title}) {
        EXPECT_EQ(font.lfWeight, 400);
        EXPECT_EQ(font.lfCharSet, DEFAULT_CHARSET);
        EXPECT_EQ(font.lfQuality, CLEARTYPE_QUALITY);
        EXPECT_FALSE(font.lfItalic || font.lfUnderline || font.lfStrikeOut);
    }
    for (const LOGFONTW& font : {of_body, of_small}) {
        EXPECT_STREQ(font.lfFaceName, L"Segoe UI");
        EXPECT_EQ(font.lfPitchAndFamily & 0xF0, FF_SWISS);
    }
    EXPECT_STREQ(of_title.lfFaceName, L"Georgia");
    EXPECT_EQ(of_title.lfPitchAndFamily & 0xF0, FF_ROMAN);
}

}  // namespace

TEST(Fonts, AreThreeWhoseHeightsFollowTheDpi)
{
    expect_made_for(make_fonts(96), 16, 14, 26);
    expect_made_for(make_fonts(144), 24, 21, 39);
    expect_made_for(make_fonts(120), 20, 18, 33);  // 17.5 and 32.5
}
