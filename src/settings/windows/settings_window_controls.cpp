#include "settings/windows/settings_window_controls.h"

#include "platform/text_conversion.h"
#include "settings/windows/settings_window_password.h"
#include "ui/windows/labels.h"
#include "ui/windows/screen_reader.h"

namespace {

constexpr int kLeft = 20;
constexpr int kWidth = 404;  // of a field
constexpr int kEyeSize = 32;
constexpr wchar_t kHint[] =
    L"Not the site login. On your profile, Application Passwords, paste the one WordPress shows.";

// The places are those at 96 DPI.
constexpr ControlRow<Rect> kControls[] = {
    {kSiteCaption, ControlKind::label, L"Site", kSmallText, {kLeft, 16, 400, 18}},
    {kSiteField, ControlKind::field, L"", kBodyText, {kLeft, 36, kWidth, 28}},
    {kUserCaption, ControlKind::label, L"WordPress user", kSmallText, {kLeft, 74, 400, 18}},
    {kUserField, ControlKind::field, L"", kBodyText, {kLeft, 94, kWidth, 28}},
    {kPasswordCaption, ControlKind::label, L"Application password", kSmallText, {kLeft, 132, 400, 18}},
    {kPasswordField, ControlKind::password_field, L"", kBodyText, {kLeft, 152, kWidth - 8 - kEyeSize, 32}},
    {kShowPasswordButton, ControlKind::button, L"", kBodyText, {kLeft + kWidth - kEyeSize, 152, kEyeSize, kEyeSize}},
    {kPasswordHint, ControlKind::hint, kHint, kSmallText, {kLeft, 196, 460, 44}},
    {kCloseSettingsButton, ControlKind::button, L"Close", kBodyText, {kLeft, 248, 120, 34}},
};

Rect place_at(const ControlRow<Rect>& row, unsigned dpi)
{
    return {scaled(row.place.x, dpi), scaled(row.place.y, dpi), scaled(row.place.width, dpi),
            scaled(row.place.height, dpi)};
}

}  // namespace

Size settings_client_size(unsigned dpi)
{
    return {scaled(500, dpi), scaled(360, dpi)};
}

void fit_settings_controls(HWND window, const Fonts& fonts, unsigned dpi)
{
    change_fonts(window, kControls, fonts);
    for (const ControlRow<Rect>& row : kControls) {
        const Rect place = place_at(row, dpi);
        MoveWindow(GetDlgItem(window, row.id), place.x, place.y, place.width, place.height, FALSE);
    }
}

void create_settings_controls(HWND window, const SiteSettings& settings, const Fonts& fonts, unsigned dpi)
{
    create_all(window, kControls, fonts, [dpi](const ControlRow<Rect>& row) { return place_at(row, dpi); });
    show_in_fields(window, settings);
    prepare_password_field(GetDlgItem(window, kPasswordField), settings.pass.opens());
    name_eye(window, false);
    make_self_painting(GetDlgItem(window, kPasswordHint), TextFlow::wrapped);
    set_pressable(GetDlgItem(window, kPasswordHint), &kAccessibleLink);
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
