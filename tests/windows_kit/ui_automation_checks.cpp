// The same program as a screen reader of today hears it: through UI Automation.
#include "windows_kit/ui_automation.h"

#include "kit/test_folder.h"
#include "kit/windows/running_program.h"
#include "windows_kit/expected_controls.h"
#include "windows_kit/machine.h"
#include "windows_kit/pressed_buttons.h"

#include <gtest/gtest.h>

#include <uiautomationclient.h>

#include <algorithm>
#include <map>
#include <span>

// In place of the check where there is nobody to ask.
#define NEEDS_UI_AUTOMATION(automation)                                                                                \
    if (is_wine() && !(automation).is_there()) GTEST_SKIP() << "Wine has no client for UI Automation.";                \
    ASSERT_TRUE((automation).is_there())

namespace {

// Of uiautomationclient.h.
constexpr std::pair<Heard, long> kControlTypes[] = {{Heard::button, 50000},
                                                    {Heard::field, 50004},
                                                    {Heard::password, 50004},
                                                    {Heard::link, 50005},
                                                    {Heard::label, 50020}};

long control_type_of(Heard kind)
{
    return std::ranges::find(kControlTypes, kind, &std::pair<Heard, long>::first)->second;
}

void expect_found(const UiAutomation& automation, const DrivenWindow& window, std::span<const ExpectedControl> controls)
{
    for (const ExpectedControl& expected : controls) {
        SCOPED_TRACE(expected.id);
        const Element element = automation.element_of(window.control(expected.id));
        ASSERT_TRUE(element.is_there());
        EXPECT_EQ(element.name(), expected.name);
        EXPECT_EQ(element.number(UIA_ControlTypePropertyId), control_type_of(expected.kind));
        EXPECT_TRUE(expected.kind == Heard::label || element.truth(UIA_IsKeyboardFocusablePropertyId));
        EXPECT_EQ(element.truth(UIA_IsPasswordPropertyId), expected.kind == Heard::password);
        EXPECT_TRUE(element.truth(UIA_IsEnabledPropertyId));
        EXPECT_FALSE(element.truth(UIA_IsOffscreenPropertyId));
    }
}

// What the reader comes by when it goes through the window. What has nothing to say may be left out.
void expect_walked(const UiAutomation& automation, const DrivenWindow& window,
                   std::span<const ExpectedControl> controls)
{
    std::vector<int> walked;
    for (const Element& element : automation.children(automation.element_of(window.window())))
        if (element.window() != nullptr && !element.name().empty()) walked.push_back(GetDlgCtrlID(element.window()));
    std::vector<int> wanted;
    for (const ExpectedControl& expected : controls)
        if (*expected.name != L'\0') wanted.push_back(expected.id);
    EXPECT_EQ(walked, wanted);
}

}  // namespace

TEST(ScreenReader, FindsEveryControlOfTheMainWindowByUiAutomation)
{
    const TestFolder folder;
    const UiAutomation automation;
    NEEDS_UI_AUTOMATION(automation);
    const RunningProgram program;
    EXPECT_EQ(automation.element_of(program.window()).name(), L"Brasslet");
    expect_found(automation, program, kMainWindowControls);
    expect_walked(automation, program, kMainWindowControls);
}

TEST(ScreenReader, FindsEveryControlOfTheSettingsByUiAutomation)
{
    const TestFolder folder;
    const UiAutomation automation;
    NEEDS_UI_AUTOMATION(automation);
    const RunningProgram program;
    const OpenSettingsWindow settings(program);
    EXPECT_EQ(automation.element_of(settings.window()).name(), L"Settings");
    expect_found(automation, settings, kSettingsControls);
    expect_walked(automation, settings, kSettingsControls);
}

TEST(ScreenReader, HearsEveryNewSentenceOfTheStatusLineByUiAutomation)
{
    const TestFolder folder;
    const UiAutomation automation;
    NEEDS_UI_AUTOMATION(automation);
    const RunningProgram program;
    const Element status = automation.element_of(program.control(kStatusLine));
    const HeardChanges changes(automation, status);
    program.press(kUnbindButton);
    EXPECT_TRUE(becomes_true([&] { return changes.count() == 1; }));
    EXPECT_EQ(status.name(), kUnboundSentence);
    program.press(kPublishButton);
    EXPECT_TRUE(becomes_true([&] { return changes.count() == 2; }));
    EXPECT_EQ(status.name(), kNoWalletSentence);
}

TEST(ScreenReader, PressesEveryButtonByUiAutomation)
{
    const UiAutomation automation;
    NEEDS_UI_AUTOMATION(automation);
    expect_every_button_works([&automation](HWND button) { EXPECT_EQ(automation.element_of(button).press(), S_OK); });
}
