// The real window's colours, as they stand on the screen.
#include "app/layout.h"
#include "kit/test_folder.h"
#include "kit/windows/running_program.h"
#include "ui/windows/gdi.h"

#include <gtest/gtest.h>

namespace {

bool shows_colour(const RunningProgram& program, int x, int y, Colour colour)
{
    return becomes_true([&] { return pixel_of(program.window(), x, y) == colorref(colour); });
}

}  // namespace

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
