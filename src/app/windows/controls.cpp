#include "app/windows/controls.h"

#include "app/windows/app_state.h"
#include "platform/text_conversion.h"
#include "ui/windows/control_table.h"
#include "ui/windows/labels.h"
#include "ui/windows/screen_reader.h"

#include <algorithm>

namespace {

using MainRow = ControlRow<Rect MainLayout::*>;

// Two controls have never followed a change of DPI as the others do, and it is kept so: the address, small at first,
// becomes body text with the first change, and the Close button keeps the font that it was made with.
constexpr ControlFonts kAddressText{&Fonts::small, &Fonts::body};
constexpr ControlFonts kCloseText{&Fonts::body, nullptr};

constexpr MainRow kControls[] = {
    {kConnectButton, ControlKind::button, L"Connect", kBodyText, &MainLayout::connect, true},
    {kUnbindButton, ControlKind::button, L"Unbind", kBodyText, &MainLayout::unbind, true},
    {kSettingsButton, ControlKind::button, L"", kBodyText, &MainLayout::settings, true},
    {kHousePaymailCaption, ControlKind::label, L"House paymail", kSmallText, &MainLayout::house_paymail_caption},
    {kHousePaymail, ControlKind::label, L"", kBodyText, &MainLayout::house_paymail},
    {kPaymentAddressCaption, ControlKind::label, L"Payment address", kSmallText, &MainLayout::payment_address_caption},
    {kPaymentAddress, ControlKind::label, L"", kAddressText, &MainLayout::payment_address},
    {kNameCaption, ControlKind::label, L"Name", kSmallText, &MainLayout::name_caption},
    {kNameField, ControlKind::field, L"", kBodyText, &MainLayout::name_field},
    {kNamePreview, ControlKind::label, L"name@your-site", kBodyText, &MainLayout::name_preview},
    {kNameHint, ControlKind::label, L"Pays this house paymail. Other names stay.", kSmallText, &MainLayout::name_hint},
    {kKeptNames, ControlKind::label, L"", kSmallText, &MainLayout::kept_names},
    {kInstallButton, ControlKind::button, L"Install plugin", kBodyText, &MainLayout::install, true},
    {kPublishButton, ControlKind::button, L"Publish", kBodyText, &MainLayout::publish, true},
    {kRemoveButton, ControlKind::button, L"Remove", kBodyText, &MainLayout::remove, true},
    {kCloseButton, ControlKind::button, L"Close", kCloseText, &MainLayout::close},
    {kStatusLine, ControlKind::wrapped_label, L"", kSmallText, &MainLayout::status},
    {kVersionLabel, ControlKind::clickable_label, L"", kSmallText, &MainLayout::version},
};

// The clickable label has none: what it shows has its room.
bool has_tip(const MainRow& row)
{
    return row.kind == ControlKind::label || row.kind == ControlKind::wrapped_label;
}

HWND control(int id)
{
    return GetDlgItem(app_state().main_window, id);
}

// `spared` is left alone: a button that is disabled for even a moment loses the focus.
void enable_work(bool enabled, int spared)
{
    for (const MainRow& row : kControls)
        if (row.starts_work && row.id != spared) EnableWindow(control(row.id), enabled);
}

}  // namespace

void create_controls(HWND window)
{
    create_all(window, kControls, app_state().fonts, [](const MainRow& row) { return app_state().layout.*row.place; });

    set_accessible_name(control(kSettingsButton), L"Settings");
    set_cue(control(kNameField), L"name");
    make_self_painting(control(kStatusLine), TextFlow::wrapped);
    const HWND version = control(kVersionLabel);
    SetWindowLongPtrW(version, GWL_STYLE, GetWindowLongPtrW(version, GWL_STYLE) | SS_NOTIFY);
    make_self_painting(version, TextFlow::one_line);
    make_self_painting(control(kKeptNames), TextFlow::one_line);
}

void create_tips_of_controls()
{
    app_state().tips = create_tips(app_state().main_window);
    for (const MainRow& row : kControls)
        if (has_tip(row)) add_tip(app_state().tips, control(row.id));
}

void place_controls()
{
    for (const MainRow& row : kControls) {
        const HWND placed = control(row.id);
        const Rect& place = app_state().layout.*row.place;
        // Not repainted one by one: who lays out has the whole window painted afterwards.
        MoveWindow(placed, place.x, place.y, place.width, place.height, FALSE);
        if (app_state().tips != nullptr && has_tip(row)) move_tip(app_state().tips, placed);
    }
}

void reassign_control_fonts()
{
    change_fonts(app_state().main_window, kControls, app_state().fonts);
}

void answer_tip(NMTTDISPINFOW& question)
{
    const HWND label = label_of_tip(question);
    const bool is_wrapped = GetDlgCtrlID(label) == kStatusLine;
    answer_tip(question, label, is_wrapped ? TextFlow::wrapped : TextFlow::one_line);
}

void set_control_text(int id, const std::string& utf8)
{
    // A control that says it already is not painted again.
    if (control_text(control(id)) != utf8) SetWindowTextW(control(id), widen(utf8).c_str());
}

void show_kept_names(const std::string& utf8)
{
    set_control_text(kKeptNames, utf8);
    set_pressable(control(kKeptNames), utf8.empty() ? nullptr : &kAccessibleButton);
}

std::string name_field_text()
{
    return control_text(control(kNameField));
}

void set_status(const std::wstring& text)
{
    SetWindowTextW(control(kStatusLine), text.c_str());
    announce_text(control(kStatusLine));
}

void show_waiting(int button)
{
    const HWND focus = GetFocus();
    enable_work(false, button);
    // A window without a focus hears no keys.
    if (focus != nullptr && !IsWindowEnabled(focus)) SetFocus(control(button));
    SetWindowTextW(control(button), L"Wait...");
}

void show_idle(int waited_button)
{
    const auto row = std::ranges::find(kControls, waited_button, &MainRow::id);
    if (row != std::end(kControls)) SetWindowTextW(control(waited_button), row->text);
    enable_work(true, 0);
}
