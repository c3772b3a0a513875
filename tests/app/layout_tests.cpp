#include "app/layout.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <ostream>

void PrintTo(const Rect& rect, std::ostream* out)
{
    *out << rect.x << ',' << rect.y << ' ' << rect.width << 'x' << rect.height;
}

TEST(MainLayout, At96)
{
    const MainLayout layout = main_layout(760, 96);
    EXPECT_EQ(layout.title, (Rect{20, 14, 460, 32}));
    EXPECT_EQ(layout.title_rule, (Rect{20, 50, 148, 1}));
    EXPECT_EQ(layout.subtitle, (Rect{20, 52, 460, 22}));
    EXPECT_EQ(layout.settings, (Rect{706, 21, 36, 36}));
    EXPECT_EQ(layout.unbind, (Rect{590, 23, 108, 32}));
    EXPECT_EQ(layout.connect, (Rect{474, 23, 108, 32}));

    EXPECT_EQ(layout.wallet_card, (Rect{18, 94, 724, 128}));
    EXPECT_EQ(layout.house_paymail_caption, (Rect{36, 106, 688, 18}));
    EXPECT_EQ(layout.house_paymail, (Rect{36, 124, 688, 22}));
    EXPECT_EQ(layout.payment_address_caption, (Rect{36, 152, 688, 18}));
    EXPECT_EQ(layout.payment_address, (Rect{36, 170, 688, 22}));

    EXPECT_EQ(layout.name_card, (Rect{18, 236, 724, 168}));
    EXPECT_EQ(layout.name_caption, (Rect{36, 252, 688, 18}));
    EXPECT_EQ(layout.name_field, (Rect{36, 274, 688, 30}));
    EXPECT_EQ(layout.name_preview, (Rect{36, 312, 688, 22}));
    EXPECT_EQ(layout.name_hint, (Rect{36, 338, 688, 20}));
    EXPECT_EQ(layout.kept_names, (Rect{36, 362, 688, 22}));

    EXPECT_EQ(layout.install, (Rect{18, 420, 236, 36}));
    EXPECT_EQ(layout.publish, (Rect{262, 420, 236, 36}));
    EXPECT_EQ(layout.remove, (Rect{506, 420, 236, 36}));

    EXPECT_EQ(layout.status, (Rect{18, 468, 724, 48}));
    EXPECT_EQ(layout.close, (Rect{632, 520, 110, 32}));
    EXPECT_EQ(layout.version, (Rect{18, 527, 596, 18}));
    EXPECT_EQ(layout.card_corner, 16);
}

TEST(MainLayout, At144)
{
    const MainLayout layout = main_layout(1140, 144);
    EXPECT_EQ(layout.title, (Rect{30, 21, 690, 48}));
    EXPECT_EQ(layout.title_rule, (Rect{30, 75, 222, 1}));
    EXPECT_EQ(layout.subtitle, (Rect{30, 78, 690, 33}));
    EXPECT_EQ(layout.settings, (Rect{1059, 31, 54, 54}));  // (117 - 54) / 2 = 31.5
    EXPECT_EQ(layout.unbind, (Rect{885, 34, 162, 48}));
    EXPECT_EQ(layout.connect, (Rect{711, 34, 162, 48}));
    EXPECT_EQ(layout.wallet_card, (Rect{27, 141, 1086, 192}));
    EXPECT_EQ(layout.house_paymail_caption, (Rect{54, 159, 1032, 27}));
    EXPECT_EQ(layout.house_paymail, (Rect{54, 186, 1032, 33}));
    EXPECT_EQ(layout.payment_address_caption, (Rect{54, 228, 1032, 27}));
    EXPECT_EQ(layout.payment_address, (Rect{54, 255, 1032, 33}));
    EXPECT_EQ(layout.name_card, (Rect{27, 354, 1086, 252}));
    EXPECT_EQ(layout.name_caption, (Rect{54, 378, 1032, 27}));
    EXPECT_EQ(layout.name_field, (Rect{54, 411, 1032, 45}));
    EXPECT_EQ(layout.name_preview, (Rect{54, 468, 1032, 33}));
    EXPECT_EQ(layout.name_hint, (Rect{54, 507, 1032, 30}));
    EXPECT_EQ(layout.kept_names, (Rect{54, 543, 1032, 33}));
    EXPECT_EQ(layout.install, (Rect{27, 630, 354, 54}));
    EXPECT_EQ(layout.publish, (Rect{393, 630, 354, 54}));
    EXPECT_EQ(layout.remove, (Rect{759, 630, 354, 54}));
    EXPECT_EQ(layout.status, (Rect{27, 702, 1086, 72}));
    EXPECT_EQ(layout.close, (Rect{948, 780, 165, 48}));
    EXPECT_EQ(layout.version, (Rect{27, 790, 894, 27}));  // (48 - 27) / 2 = 10.5
    EXPECT_EQ(layout.card_corner, 24);
}

TEST(MainLayout, At192HasHeaderButtonsOf216By64AndASettingsButtonOf72By72)
{
    const MainLayout layout = main_layout(1520, 192);
    EXPECT_EQ(layout.connect, (Rect{948, 46, 216, 64}));
    EXPECT_EQ(layout.unbind, (Rect{1180, 46, 216, 64}));
    EXPECT_EQ(layout.settings, (Rect{1412, 42, 72, 72}));
    EXPECT_EQ(layout.close, (Rect{1264, 1040, 220, 64}));
}

TEST(MainLayout, ThreeActionButtonsShareTheWidthInWholePixels)
{
    const MainLayout layout = main_layout(761, 96);  // (725 - 16) / 3 = 236.3
    EXPECT_EQ(layout.publish.width, 236);
    EXPECT_EQ(layout.publish.x, 262);
    EXPECT_EQ(layout.remove.x, 506);
}

TEST(MainLayout, KeepsTheRightEdgeOfAWiderWindow)
{
    const MainLayout layout = main_layout(1000, 96);
    EXPECT_EQ(layout.settings.right(), 982);
    EXPECT_EQ(layout.close.right(), 982);
    EXPECT_EQ(layout.wallet_card.right(), 982);
    EXPECT_EQ(layout.title.right(), 720);
}

TEST(StartClientSize, FollowsTheDpi)
{
    EXPECT_EQ(start_client_size(96), (Size{760, 600}));
    EXPECT_EQ(start_client_size(144), (Size{1140, 900}));
}

TEST(SmallestWindowSize, FollowsTheDpi)
{
    EXPECT_EQ(smallest_window_size(96), (Size{680, 600}));
    EXPECT_EQ(smallest_window_size(192), (Size{1360, 1200}));
}

namespace {

constexpr unsigned kDpis[] = {96, 97, 120, 144, 168, 192, 240, 288};

// What is a control, from the top down.
constexpr Rect MainLayout::*kControls[] = {
    &MainLayout::connect,         &MainLayout::unbind,
    &MainLayout::settings,        &MainLayout::house_paymail_caption,
    &MainLayout::house_paymail,   &MainLayout::payment_address_caption,
    &MainLayout::payment_address, &MainLayout::name_caption,
    &MainLayout::name_field,      &MainLayout::name_preview,
    &MainLayout::name_hint,       &MainLayout::kept_names,
    &MainLayout::install,         &MainLayout::publish,
    &MainLayout::remove,          &MainLayout::status,
    &MainLayout::close,           &MainLayout::version,
};

// By more than the one pixel that comes of rounding top and height each for itself.
bool overlap(const Rect& a, const Rect& b)
{
    const int columns = std::min(a.right(), b.right()) - std::max(a.x, b.x);
    const int rows = std::min(a.bottom(), b.bottom()) - std::max(a.y, b.y);
    return columns > 1 && rows > 1;
}

bool is_inside(const Rect& inner, const Rect& outer)
{
    return inner.x >= outer.x && inner.y >= outer.y && inner.right() <= outer.right() &&
           inner.bottom() <= outer.bottom();
}

void expect_room_for_all(int client_width, unsigned dpi)
{
    const MainLayout layout = main_layout(client_width, dpi);
    const int height = smallest_window_size(dpi).height - 44 * static_cast<int>(dpi) / 96;  // more than any frame takes
    for (auto a = std::begin(kControls); a != std::end(kControls); ++a) {
        const Rect& place = layout.*(*a);
        EXPECT_GT(place.width, 0);
        EXPECT_TRUE(is_inside(place, {0, 0, client_width, height})) << testing::PrintToString(place) << " at " << dpi;
        for (auto b = std::next(a); b != std::end(kControls); ++b)
            EXPECT_FALSE(overlap(place, layout.*(*b)))
                << testing::PrintToString(place) << " and " << testing::PrintToString(layout.*(*b)) << " at " << dpi;
    }
    for (const Rect& place : {layout.house_paymail_caption, layout.payment_address})
        EXPECT_TRUE(is_inside(place, layout.wallet_card));
    for (const Rect& place : {layout.name_caption, layout.name_field, layout.kept_names})
        EXPECT_TRUE(is_inside(place, layout.name_card));
    EXPECT_FALSE(overlap(layout.wallet_card, layout.name_card));
    EXPECT_FALSE(overlap(layout.name_card, layout.install));
}

}  // namespace

TEST(MainLayout, NothingOverlapsOrLeavesTheWindowAtAnyDpiAndWidth)
{
    for (const unsigned dpi : kDpis) {
        const int frame = 40 * static_cast<int>(dpi) / 96;  // wider than any
        for (const int width :
             {smallest_window_size(dpi).width - frame, start_client_size(dpi).width, 3 * start_client_size(dpi).width})
            expect_room_for_all(width, dpi);
    }
}
