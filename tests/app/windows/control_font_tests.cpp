// Which control of the main window shows which font: at the start and after the window came to another monitor.
#include "app/windows/controls.h"
#include "kit/windows/drawn_texts.h"
#include "kit/windows/own_window.h"

#include <gtest/gtest.h>

#include <map>

namespace {

constexpr int kBody = 16;  // heights of the characters at 96 DPI
constexpr int kSmall = 14;

const std::map<int, int> kHeightsAtCreation = {
    {1001, kBody},  {1002, kBody},  {1003, kBody}, {1014, kSmall}, {1010, kBody},  {1015, kSmall},
    {1011, kSmall}, {1016, kSmall}, {1004, kBody}, {1012, kBody},  {1017, kSmall}, {1013, kSmall},
    {1005, kBody},  {1006, kBody},  {1007, kBody}, {1018, kBody},  {1008, kSmall}, {1009, kSmall},
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
