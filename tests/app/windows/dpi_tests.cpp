// The real windows at every resolution, at their smallest, at the size they start with and wide; with texts as long as
// they come. The pictures are left in build/pictures.
#include "app/layout.h"
#include "app/windows/controls.h"
#include "kit/windows/any_window.h"
#include "kit/windows/own_window.h"
#include "kit/windows/picture.h"
#include "settings/windows/settings_window_controls.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace {

constexpr unsigned kDpis[] = {96, 120, 144, 192, 288};

const std::string kLongName(64, 'n');
const std::string kLongHost = "a-rather-long-name-of-a-site.in-a-department.of-a-large-organisation.example";
const std::string kAddress = "1BitcoinEaterAddressDontSendf59kuE";

// The longest of the program's own sentences.
constexpr wchar_t kLongestSentence[] =
    L"Brasslet.zip is selected in the folder that opened. Upload it over the plugin already there. This one sends the "
    L"login in the form.";

enum class Width { smallest, at_start, wide };

Size window_size(Width width, unsigned dpi)
{
    const Size start = start_client_size(dpi);
    if (width == Width::smallest) return {1, 1};  // Windows makes it the smallest
    const int screen = GetSystemMetrics(SM_CXSCREEN);
    return width == Width::at_start ? start : Size{std::min(start.width * 3 / 2, screen), start.height};
}

std::vector<HWND> children(HWND window)
{
    std::vector<HWND> all;
    for (HWND child = GetWindow(window, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT))
        all.push_back(child);
    return all;
}

// By more than the one pixel that comes of rounding top and height each for itself.
bool overlap(const RECT& a, const RECT& b)
{
    RECT common{};
    IntersectRect(&common, &a, &b);
    return common.right - common.left > 1 && common.bottom - common.top > 1;
}

void expect_room_for_all(HWND window)
{
    RECT client{};
    GetClientRect(window, &client);
    MapWindowPoints(window, HWND_DESKTOP, reinterpret_cast<POINT*>(&client), 2);
    std::vector<RECT> places;
    for (const HWND child : children(window)) {
        RECT place{};
        GetWindowRect(child, &place);
        RECT seen{};
        IntersectRect(&seen, &place, &client);
        EXPECT_TRUE(EqualRect(&seen, &place)) << GetDlgCtrlID(child) << " leaves the window";
        for (std::size_t i = 0; i < places.size(); ++i)
            EXPECT_FALSE(overlap(place, places[i])) << GetDlgCtrlID(child) << " overlaps " << i;
        places.push_back(place);
    }
}

class EveryDpi : public testing::TestWithParam<unsigned> {
protected:
    EveryDpi()
    {
        put_mouse_away();
        set_control_text(kHousePaymail, kLongName + "@corvane.example");
        set_control_text(kPaymentAddress, kAddress);
        set_control_text(kNameField, kLongName);
        set_control_text(kNamePreview, kLongName + "@" + kLongHost);
        set_control_text(kKeptNames, "Vaultry kept " + kLongName + "@" + kLongHost + ", second@" + kLongHost);
        set_status(kLongestSentence);
    }
    // As when the window is moved to such a monitor.
    void move_to_monitor(Width width) const
    {
        const Size size = window_size(width, GetParam());
        window.change_dpi(GetParam(), {0, 0, size.width, size.height});
    }
    bool is_whole(HWND label) const
    {
        NMTTDISPINFOW question{};
        question.hdr = {app_state().tips, static_cast<UINT_PTR>(GetDlgCtrlID(label)), TTN_GETDISPINFOW};
        SendMessageW(window.window(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&question));
        return *question.lpszText == L'\0';
    }

    const TestFolder folder;
    const OwnWindow window;
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(Monitors, EveryDpi, testing::ValuesIn(kDpis),
                         [](const auto& dpi) { return std::to_string(dpi.param); });

TEST_P(EveryDpi, HasRoomForAllControlsAndWhatDoesNotFitCanBeRead)
{
    const std::string dpi = std::to_string(GetParam());
    for (const auto& [width, name] : {std::pair{Width::wide, "wide"}, std::pair{Width::at_start, "start"},
                                      std::pair{Width::smallest, "smallest"}}) {
        move_to_monitor(width);
        expect_room_for_all(window.window());
        EXPECT_TRUE(is_whole(window.control(kStatusLine))) << name;
        EXPECT_TRUE(is_whole(window.control(kPaymentAddress))) << name;
        save_picture(repainted(window.window()), "window-" + dpi + "-" + name);
    }
    EXPECT_FALSE(is_whole(window.control(kKeptNames)));
    const Size smallest = smallest_window_size(GetParam());
    const RECT rectangle = window.rectangle();
    EXPECT_EQ((Size{rectangle.right - rectangle.left, rectangle.bottom - rectangle.top}), smallest);
}

TEST_P(EveryDpi, TheSettingsHaveRoomForAllControls)
{
    move_to_monitor(Width::at_start);
    SendMessageW(window.control(kSettingsButton), BM_CLICK, 0, 0);
    const HWND settings = app_state().settings_window;
    ASSERT_NE(settings, nullptr);
    expect_room_for_all(settings);
    SetDlgItemTextW(settings, kSiteField, (L"https://" + std::wstring(kLongHost.begin(), kLongHost.end())).c_str());
    save_picture(repainted(settings), "settings-long-" + std::to_string(GetParam()));
}
