// The windows of a user who has asked for high contrast: the system's colours everywhere, and nothing disappears.
#include "kit/windows/high_contrast.h"

#include "app/windows/controls.h"
#include "app/windows/update_notice.h"
#include "kit/windows/any_window.h"
#include "kit/windows/drawn_texts.h"
#include "kit/windows/own_window.h"
#include "kit/windows/picture.h"
#include "kit/windows/replaced_import.h"
#include "settings/windows/settings_window_controls.h"
#include "ui/windows/keyboard.h"

#include <gtest/gtest.h>

#include <dwmapi.h>

#include <array>
#include <map>
#include <optional>

using SetAttributeFunction = decltype(&DwmSetWindowAttribute);
// NOLINTNEXTLINE(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)
extern "C" SetAttributeFunction __imp_DwmSetWindowAttribute;

namespace {

constexpr SystemColours kScheme = kContrastScheme;
constexpr std::array kButtons = {kConnectButton, kUnbindButton, kSettingsButton, kInstallButton,
                                 kPublishButton, kRemoveButton, kCloseButton};

class InHighContrast : public testing::Test {
protected:
    InHighContrast() : scheme(std::in_place)
    {
        put_mouse_away();
        window.emplace();
    }
    InHighContrast(const InHighContrast&) = delete;
    InHighContrast& operator=(const InHighContrast&) = delete;
    ~InHighContrast() override
    {
        scheme.reset();
        tell_of_colours();
    }

    void tell_of_colours() const
    {
        for (const HWND told : {window->window(), app_state().settings_window})
            if (told != nullptr) SendMessageW(told, WM_SYSCOLORCHANGE, 0, 0);
        answer_messages();
    }
    HWND open_settings() const
    {
        SendMessageW(window->control(kSettingsButton), BM_CLICK, 0, 0);
        answer_messages();
        return app_state().settings_window;
    }

    const TestFolder folder;
    std::optional<HighContrast> scheme;
    std::optional<OwnWindow> window;
};

// Every text of the window, and the colour that it is drawn in.
std::map<std::wstring, COLORREF> text_colours(HWND window)
{
    std::map<std::wstring, COLORREF> colours;
    for (const DrawnText& text : drawn_texts([&] { repainted(window); }))
        colours[text.text] = text.colour;
    return colours;
}

struct ControlColours {
    COLORREF text = 0;
    COLORREF background = 0;
};

ControlColours colours_of(HWND control, UINT message)
{
    HDC dc = GetDC(control);
    SendMessageW(GetParent(control), message, reinterpret_cast<WPARAM>(dc), reinterpret_cast<LPARAM>(control));
    const ControlColours colours{GetTextColor(dc), GetBkColor(dc)};
    ReleaseDC(control, dc);
    return colours;
}

std::map<DWORD, DWORD> frame_attributes;

HRESULT WINAPI note_attribute(HWND, DWORD attribute, LPCVOID value, DWORD size)
{
    frame_attributes[attribute] = size == sizeof(DWORD) ? *static_cast<const DWORD*>(value) : 0;
    return S_OK;
}

}  // namespace

TEST_F(InHighContrast, TheWindowAndItsCardsAreFlatAndTheCardsOutlined)
{
    const Picture picture = repainted(window->window());
    for (const int y : {0, 80, 230, picture.height() - 1})
        EXPECT_EQ(picture.at(5, y), kScheme.window) << y;
    const MainLayout& layout = app_state().layout;
    for (const Rect& card : {layout.wallet_card, layout.name_card}) {
        EXPECT_EQ(picture.at(card.x + 8, card.middle()), kScheme.window);
        EXPECT_EQ(picture.at(card.x, card.middle()), kScheme.window_text);
        EXPECT_EQ(picture.at(card.right() - 1, card.middle()), kScheme.window_text);
    }
    EXPECT_EQ(picture.at(layout.title_rule.x + 100, layout.title_rule.y), kScheme.window_text);
    save_picture(picture, "high-contrast");
}

TEST_F(InHighContrast, EveryPaintedTextIsInTheColourThatGoesWithWhatItStandsOn)
{
    set_status(L"Connected.");
    const auto colours = text_colours(window->window());
    for (const wchar_t* text :
         {L"Brasslet", L"A payment name beside your Vaultry paymail.", L"Connected.", L"Version 0.001"})
        EXPECT_EQ(colours.at(text), colorref(kScheme.window_text)) << text;
    for (const wchar_t* text : {L"Connect", L"Unbind", L"Install plugin", L"Publish", L"Remove", L"Close"})
        EXPECT_EQ(colours.at(text), colorref(kScheme.button_text)) << text;
}

TEST_F(InHighContrast, TheLinkIsInTheColourOfLinks)
{
    app_state().update_is_available = true;
    refresh_version_label();
    EXPECT_EQ(text_colours(window->window()).at(window->text(kVersionLabel)), colorref(kScheme.link));
}

TEST_F(InHighContrast, LabelsAndFieldsAreInTheWindowsColours)
{
    for (const int id : {kHousePaymail, kPaymentAddress, kNamePreview, kKeptNames, kHousePaymailCaption,
                         kPaymentAddressCaption, kNameCaption, kNameHint}) {
        const ControlColours colours = colours_of(window->control(id), WM_CTLCOLORSTATIC);
        EXPECT_EQ(colours.text, colorref(kScheme.window_text)) << id;
        EXPECT_EQ(colours.background, colorref(kScheme.window)) << id;
    }
    const ControlColours field = colours_of(window->control(kNameField), WM_CTLCOLOREDIT);
    EXPECT_EQ(field.text, colorref(kScheme.window_text));
    EXPECT_EQ(field.background, colorref(kScheme.window));
    const Picture picture = repainted(window->control(kNameField));
    EXPECT_EQ(picture.at(picture.width() - 10, picture.height() / 2), kScheme.window);
}

TEST_F(InHighContrast, ButtonsShowFaceOutlineAndInk)
{
    for (const int button : kButtons) {
        const Picture picture = repainted(window->control(button));
        EXPECT_EQ(picture.at(picture.width() / 2, 2), kScheme.button) << button;
        EXPECT_EQ(picture.at(picture.width() / 2, 0), kScheme.button_text) << button;
        EXPECT_EQ(picture.at(0, 0), kScheme.window) << button;
    }
    EXPECT_EQ(repainted(window->control(kSettingsButton)).at(18, 8), kScheme.button_text);  // a spoke of the gear
}

TEST_F(InHighContrast, AButtonUnderTheMouseIsHighlightedAndADisabledOneGrey)
{
    const HWND publish = window->control(kPublishButton);
    SetPropW(publish, L"payname.hot", reinterpret_cast<HANDLE>(1));
    EXPECT_EQ(repainted(publish).at(20, 4), kScheme.highlight);
    EXPECT_EQ(text_colours(publish).at(L"Publish"), colorref(kScheme.highlight_text));
    RemovePropW(publish, L"payname.hot");
    EnableWindow(publish, FALSE);
    EXPECT_EQ(repainted(publish).at(20, 4), kScheme.button);
    EXPECT_EQ(text_colours(publish).at(L"Publish"), colorref(kScheme.grey_text));
}

TEST_F(InHighContrast, TheFocusIsShownInTheColourOfTheLabel)
{
    set_focus_shown(window->window(), true);
    SetFocus(window->control(kPublishButton));
    const Picture picture = repainted(window->control(kPublishButton));
    EXPECT_EQ(picture.at(3, picture.height() / 2), kScheme.button_text);
}

TEST_F(InHighContrast, TheSettingsAreToo)
{
    const HWND settings = open_settings();
    const Picture picture = repainted(settings);
    EXPECT_EQ(picture.at(5, 5), kScheme.window);
    EXPECT_EQ(picture.at(5, picture.height() - 1), kScheme.window);
    save_picture(picture, "high-contrast-settings");
    for (const int id : {kPasswordHint, kSiteCaption, kUserCaption, kPasswordCaption}) {
        const ControlColours colours = colours_of(GetDlgItem(settings, id), WM_CTLCOLORSTATIC);
        EXPECT_EQ(colours.text, colorref(kScheme.window_text)) << id;
        EXPECT_EQ(colours.background, colorref(kScheme.window)) << id;
    }
    for (const int id : {kSiteField, kUserField, kPasswordField}) {
        const ControlColours colours = colours_of(GetDlgItem(settings, id), WM_CTLCOLOREDIT);
        EXPECT_EQ(colours.text, colorref(kScheme.window_text)) << id;
        EXPECT_EQ(colours.background, colorref(kScheme.window)) << id;
    }
    EXPECT_EQ(repainted(GetDlgItem(settings, kShowPasswordButton)).at(16, 16), kScheme.button_text);  // the eye's pupil
    EXPECT_EQ(text_colours(settings).at(L"Close"), colorref(kScheme.button_text));
}

TEST_F(InHighContrast, TheFrameIsLeftToWindows)
{
    frame_attributes.clear();
    const ReplacedImport<SetAttributeFunction> noted(__imp_DwmSetWindowAttribute, note_attribute);
    tell_of_colours();
    constexpr DWORD kWindowsChoice = 0xFFFFFFFF;
    EXPECT_EQ(frame_attributes,
              (std::map<DWORD, DWORD>{{20, 0}, {34, kWindowsChoice}, {35, kWindowsChoice}, {36, kWindowsChoice}}));
}

// Live, in both windows and back, whichever message tells of it.
TEST_F(InHighContrast, ComesAndGoesWhileTheWindowsAreOpen)
{
    const HWND main_window = window->window();
    const HWND settings = open_settings();
    const std::array shown = {Picture(main_window), Picture(settings)};
    for (const UINT message : {UINT{WM_SYSCOLORCHANGE}, UINT{WM_SETTINGCHANGE}, UINT{WM_THEMECHANGED}}) {
        const auto tell = [&] {
            SendMessageW(main_window, message, 0, 0);
            SendMessageW(settings, message, 0, 0);
            answer_messages();
        };
        scheme.reset();
        tell();
        EXPECT_EQ(Picture(main_window).at(5, 0), kBackgroundTop) << message;
        EXPECT_EQ(Picture(settings).at(5, 0), kBackgroundTop) << message;
        EXPECT_EQ(colours_of(GetDlgItem(settings, kSiteField), WM_CTLCOLOREDIT).background, colorref(kEditBackground));
        scheme.emplace();
        tell();
        EXPECT_EQ(Picture(main_window), shown[0]) << message;
        EXPECT_EQ(Picture(settings), shown[1]) << message;
    }
}
