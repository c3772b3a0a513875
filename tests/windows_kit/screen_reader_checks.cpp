// The program as a screen reader hears it through IAccessible, the older of Windows' two interfaces.
#include "kit/test_folder.h"
#include "kit/windows/own_window.h"
#include "kit/windows/running_program.h"
#include "kit/windows/spoken.h"
#include "windows_kit/expected_controls.h"
#include "windows_kit/pressed_buttons.h"
#include "windows_kit/report.h"

#include <gtest/gtest.h>

#include <span>
#include <string>
#include <vector>

namespace {

// Windows says "text" of a label; Wine's own object for it says "client".
bool is_role_of(LONG role, Heard kind)
{
    switch (kind) {
    case Heard::button:
        return role == ROLE_SYSTEM_PUSHBUTTON;
    case Heard::link:
        return role == ROLE_SYSTEM_LINK;
    case Heard::field:
    case Heard::password:
        return role == ROLE_SYSTEM_TEXT;
    case Heard::label:
        break;
    }
    return role == ROLE_SYSTEM_STATICTEXT || role == ROLE_SYSTEM_CLIENT;
}

void expect_heard(const DrivenWindow& window, std::span<const ExpectedControl> controls)
{
    for (const ExpectedControl& expected : controls) {
        SCOPED_TRACE(expected.id);
        ASSERT_NE(window.control(expected.id), nullptr);
        const Spoken heard = spoken(window.control(expected.id));
        EXPECT_EQ(heard.name, expected.name);
        EXPECT_TRUE(is_role_of(heard.role, expected.kind)) << heard.role;
        EXPECT_TRUE(expected.kind == Heard::label || heard.is(STATE_SYSTEM_FOCUSABLE));
        EXPECT_EQ(heard.is(STATE_SYSTEM_PROTECTED), expected.kind == Heard::password);
        EXPECT_FALSE(heard.is(STATE_SYSTEM_UNAVAILABLE | STATE_SYSTEM_INVISIBLE));
    }
}

// The controls of the window as IAccessible lists them.
std::vector<int> walked(HWND window)
{
    const Accessible object(window);
    LONG count = 0;
    EXPECT_EQ(object.get()->get_accChildCount(&count), S_OK);
    std::vector<VARIANT> children(static_cast<std::size_t>(count));
    EXPECT_EQ(AccessibleChildren(object.get(), 0, count, children.data(), &count), S_OK);
    std::vector<int> ids;
    for (VARIANT& child : children) {
        IAccessible* accessible = nullptr;
        HWND control = nullptr;
        if (child.vt == VT_DISPATCH &&
            SUCCEEDED(child.pdispVal->QueryInterface(__uuidof(IAccessible), reinterpret_cast<void**>(&accessible)))) {
            WindowFromAccessibleObject(accessible, &control);
            accessible->Release();
        }
        ids.push_back(control != nullptr ? GetDlgCtrlID(control) : 0);
        VariantClear(&child);
    }
    return ids;
}

std::vector<int> ids_of(std::span<const ExpectedControl> controls)
{
    std::vector<int> ids;
    for (const ExpectedControl& expected : controls)
        ids.push_back(expected.id);
    return ids;
}

}  // namespace

TEST(ScreenReader, HearsNameRoleAndStateOfEveryControlOfTheMainWindow)
{
    const TestFolder folder;
    const RunningProgram program;
    EXPECT_EQ(spoken(program.window()).name, L"Brasslet");
    expect_heard(program, kMainWindowControls);
    EXPECT_EQ(walked(program.window()), ids_of(kMainWindowControls));
    show_picture("The window that was read", program.window());
}

TEST(ScreenReader, HearsNameRoleAndStateOfEveryControlOfTheSettings)
{
    const TestFolder folder;
    const RunningProgram program;
    const OpenSettingsWindow settings(program);
    EXPECT_EQ(spoken(settings.window()).name, L"Settings");
    expect_heard(settings, kSettingsControls);
    EXPECT_EQ(walked(settings.window()), ids_of(kSettingsControls));
    show_picture("The settings that were read", settings.window());
}

TEST(ScreenReader, HearsThatAButtonCannotBePressed)
{
    const TestFolder folder;
    const RunningProgram program;
    const HWND publish = program.control(kPublishButton);
    EnableWindow(publish, FALSE);
    EXPECT_TRUE(spoken(publish).is(STATE_SYSTEM_UNAVAILABLE));
    EXPECT_NE(Accessible(publish).press(), S_OK);
    EXPECT_TRUE(program.answers());
    EXPECT_EQ(program.text(kStatusLine), L"");
}

TEST(ScreenReader, HearsEveryNewSentenceOfTheStatusLine)
{
    const TestFolder folder;
    const RunningProgram program;
    const HWND status = program.control(kStatusLine);
    std::vector<std::wstring> sentences;
    const HeardEvents events(EVENT_OBJECT_LIVEREGIONCHANGED, EVENT_OBJECT_LIVEREGIONCHANGED, [&](DWORD, HWND window) {
        if (window == status) sentences.push_back(spoken(window).name);
    });
    program.press(kUnbindButton);
    EXPECT_TRUE(comes_true([&] { return sentences.size() == 1; }));
    program.press(kPublishButton);
    EXPECT_TRUE(comes_true([&] { return sentences.size() == 2; }));
    EXPECT_EQ(sentences, (std::vector<std::wstring>{kUnboundSentence, kNoWalletSentence}));
}

TEST(ScreenReader, HearsThatTheEyeWouldHideThePassword)
{
    const TestFolder folder;
    const RunningProgram program;
    const OpenSettingsWindow settings(program);
    const HWND eye = settings.control(kShowPasswordButton);
    int changes = 0;
    const HeardEvents events(EVENT_OBJECT_NAMECHANGE, EVENT_OBJECT_NAMECHANGE,
                             [&](DWORD, HWND window) { changes += window == eye ? 1 : 0; });
    settings.press(kShowPasswordButton);
    EXPECT_TRUE(comes_true([&] { return changes == 1; }));
    EXPECT_EQ(spoken(eye).name, L"Hide password");
}

TEST(ScreenReader, PressesEveryButton)
{
    expect_every_button_works([](HWND button) { EXPECT_EQ(Accessible(button).press(), S_OK); });
}
