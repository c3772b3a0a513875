#include "settings/windows/settings_window_controls.h"

#include "platform/text_conversion.h"
#include "settings/windows/settings_window_password.h"
#include "ui/dpi.h"
#include "ui/windows/child_controls.h"
#include "ui/windows/control_text.h"
#include "ui/windows/drawn_button.h"
#include "ui/windows/screen_reader.h"

namespace {

enum class Kind { label, hint, button, field, password_field };

struct Row {
    int id = 0;
    Kind kind = Kind::label;
    const wchar_t* text = nullptr;
    Rect place;  // at 96 DPI
    Font Fonts::*font = nullptr;
};

constexpr int kLeft = 20;
constexpr int kWidth = 404;  // of a field
constexpr int kEyeSize = 32;
constexpr wchar_t kHint[] =
    L"Not the site login. On your profile, Application Passwords, paste the one WordPress shows.";

// In the order of creation, which is also the order of the Tab key.
constexpr Row kRows[] = {
    {kSiteCaption, Kind::label, L"Site", {kLeft, 16, 400, 18}, &Fonts::small},
    {kSiteField, Kind::field, L"", {kLeft, 36, kWidth, 28}, &Fonts::body},
    {kUserCaption, Kind::label, L"WordPress user", {kLeft, 74, 400, 18}, &Fonts::small},
    {kUserField, Kind::field, L"", {kLeft, 94, kWidth, 28}, &Fonts::body},
    {kPasswordCaption, Kind::label, L"Application password", {kLeft, 132, 400, 18}, &Fonts::small},
    {kPasswordField, Kind::password_field, L"", {kLeft, 152, kWidth - 8 - kEyeSize, 32}, &Fonts::body},
    {kShowPasswordButton, Kind::button, L"", {kLeft + kWidth - kEyeSize, 152, kEyeSize, kEyeSize}, &Fonts::body},
    {kPasswordHint, Kind::hint, kHint, {kLeft, 196, 460, 44}, &Fonts::small},
    {kCloseSettingsButton, Kind::button, L"Close", {kLeft, 248, 120, 34}, &Fonts::body},
};

HWND create_control(HWND window, const Row& row)
{
    switch (row.kind) {
    case Kind::label:
        return create_label(window, row.id, row.text, kOneLineLabel);
    case Kind::hint:
        return create_label(window, row.id, row.text, SS_NOPREFIX);
    case Kind::button:
        return create_drawn_button(window, row.id, row.text);
    case Kind::field:
        return create_field(window, row.id, row.text);
    case Kind::password_field:
        return create_field(window, row.id, row.text, ES_PASSWORD);
    }
    return nullptr;
}

void place(HWND control, const Rect& at_96, unsigned dpi)
{
    MoveWindow(control, scaled(at_96.x, dpi), scaled(at_96.y, dpi), scaled(at_96.width, dpi), scaled(at_96.height, dpi),
               FALSE);
}

}  // namespace

Size settings_client_size(unsigned dpi)
{
    return {scaled(500, dpi), scaled(360, dpi)};
}

void fit_settings_controls(HWND window, const Fonts& fonts, unsigned dpi)
{
    for (const Row& row : kRows) {
        const HWND control = GetDlgItem(window, row.id);
        set_font(control, fonts.*row.font);
        place(control, row.place, dpi);
    }
}

void create_settings_controls(HWND window, const SiteSettings& settings, const Fonts& fonts, unsigned dpi)
{
    for (const Row& row : kRows)
        create_control(window, row);
    fit_settings_controls(window, fonts, dpi);
    show_in_fields(window, settings);
    prepare_password_field(GetDlgItem(window, kPasswordField), settings.pass.opens());
    name_eye(window, false);
}

void show_in_fields(HWND window, const SiteSettings& settings)
{
    SetDlgItemTextW(window, kSiteField, widen(settings.site).c_str());
    SetDlgItemTextW(window, kUserField, widen(settings.user).c_str());
}

void name_eye(HWND window, bool password_is_shown)
{
    set_accessible_name(GetDlgItem(window, kShowPasswordButton),
                        password_is_shown ? L"Hide password" : L"Show password");
}

TypedSettings typed_settings(HWND window)
{
    return {control_text(GetDlgItem(window, kSiteField)), control_text(GetDlgItem(window, kUserField)),
            password_in(GetDlgItem(window, kPasswordField))};
}
