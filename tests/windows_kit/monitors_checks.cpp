// The window on every monitor that there is, and at resolutions that none has.
#include "app/layout.h"
#include "app/windows/controls.h"
#include "kit/test_folder.h"
#include "kit/windows/running_program.h"
#include "windows_kit/report.h"

#include <gtest/gtest.h>

#include <shellscalingapi.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

struct Monitor {
    HMONITOR handle = nullptr;
    RECT work_area{};
    unsigned dpi = 0;
};

BOOL CALLBACK list_monitor(HMONITOR handle, HDC, LPRECT, LPARAM list)
{
    MONITORINFO about{};
    about.cbSize = sizeof about;
    GetMonitorInfoW(handle, &about);
    UINT horizontal = 0;
    UINT vertical = 0;
    GetDpiForMonitor(handle, MDT_EFFECTIVE_DPI, &horizontal, &vertical);
    reinterpret_cast<std::vector<Monitor>*>(list)->push_back({handle, about.rcWork, horizontal});
    return TRUE;
}

std::vector<Monitor> monitors()
{
    std::vector<Monitor> all;
    EnumDisplayMonitors(nullptr, nullptr, list_monitor, reinterpret_cast<LPARAM>(&all));
    return all;
}

// A control of each card and row.
constexpr std::pair<int, Rect MainLayout::*> kPlaces[] = {{kSettingsButton, &MainLayout::settings},
                                                          {kHousePaymail, &MainLayout::house_paymail},
                                                          {kPaymentAddress, &MainLayout::payment_address},
                                                          {kNameField, &MainLayout::name_field},
                                                          {kKeptNames, &MainLayout::kept_names},
                                                          {kPublishButton, &MainLayout::publish},
                                                          {kRemoveButton, &MainLayout::remove},
                                                          {kStatusLine, &MainLayout::status},
                                                          {kCloseButton, &MainLayout::close},
                                                          {kVersionLabel, &MainLayout::version}};

bool is_laid_out_for(unsigned dpi, const RunningProgram& program)
{
    const MainLayout layout = main_layout(program.client().width, dpi);
    return std::ranges::all_of(kPlaces,
                               [&](const auto& place) { return program.place(place.first) == layout.*place.second; });
}

void move_to(const Monitor& monitor, const RunningProgram& program)
{
    constexpr int kMargin = 20;
    SetWindowPos(program.window(), nullptr, monitor.work_area.left + kMargin, monitor.work_area.top + kMargin, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void expect_followed(const Monitor& monitor, const RunningProgram& program)
{
    EXPECT_TRUE(becomes_true([&] { return GetDpiForWindow(program.window()) == monitor.dpi; }));
    EXPECT_EQ(MonitorFromWindow(program.window(), MONITOR_DEFAULTTONULL), monitor.handle);
    EXPECT_TRUE(becomes_true([&] { return is_laid_out_for(monitor.dpi, program); }));
    show_picture("On a monitor of " + std::to_string(monitor.dpi) + " DPI", program.window());
}

}  // namespace

TEST(Monitors, ShowTheWindowLaidOutForTheirDpi)
{
    const TestFolder folder;
    const RunningProgram program;
    ASSERT_FALSE(monitors().empty());
    for (const Monitor& monitor : monitors()) {
        SCOPED_TRACE(monitor.dpi);
        move_to(monitor, program);
        expect_followed(monitor, program);
    }
}

TEST(Monitors, OfAnotherDpiAreFollowedThereAndBack)
{
    const std::vector<Monitor> all = monitors();
    if (all.size() == 1) GTEST_SKIP() << "There is one monitor here.";
    const auto other = std::ranges::find_if(all, [&](const Monitor& monitor) { return monitor.dpi != all[0].dpi; });
    if (other == all.end()) GTEST_SKIP() << "All monitors here have the same DPI.";
    const TestFolder folder;
    const RunningProgram program;
    for (const Monitor& monitor : {all[0], *other, all[0]}) {
        move_to(monitor, program);
        expect_followed(monitor, program);
    }
}

TEST(Monitors, OfEveryDpiAreFollowedByTheMessageOfWindows)
{
    const TestFolder folder;
    const RunningProgram program;
    const int screen = GetSystemMetrics(SM_CXSCREEN);
    for (const unsigned dpi : {96U, 144U, 192U, 96U}) {
        SCOPED_TRACE(dpi);
        const Size size = start_client_size(dpi);
        RECT suggested{10, 10, 10 + std::min(size.width, screen), 10 + size.height};
        program.change_dpi(dpi, suggested);
        EXPECT_TRUE(is_laid_out_for(dpi, program));
        RECT place{};
        GetWindowRect(program.window(), &place);
        EXPECT_EQ(place.left, suggested.left);
        EXPECT_EQ(place.right - place.left,
                  std::max(suggested.right - suggested.left, static_cast<LONG>(smallest_window_size(dpi).width)));
        show_picture("As on a monitor of " + std::to_string(dpi) + " DPI", program.window());
    }
}
