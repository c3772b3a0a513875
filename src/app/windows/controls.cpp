#include "app/windows/controls.h"

#include "app/windows/app_state.h"
#include "platform/text_conversion.h"
#include "ui/windows/child_controls.h"
#include "ui/windows/control_text.h"
#include "ui/windows/drawn_button.h"
#include "ui/windows/painted_static.h"
#include "ui/windows/screen_reader.h"
#include "ui/windows/tips.h"

#include <algorithm>

namespace {

enum class Kind { label, wrapped_label, button, field };

struct ControlRow {
    int id = 0;
    Kind kind = Kind::label;
    const wchar_t* text = nullptr;
    Font Fonts::*font = nullptr;
    Rect MainLayout::*place = nullptr;
    bool starts_work = false;  // disabled while a flow runs
};

// In the order of creation, which is also the order of the Tab key.
constexpr ControlRow kControls[] = {
    {kConnectButton, Kind::button, L"Connect", &Fonts::body, &MainLayout::connect, true},
    {kUnbindButton, Kind::button, L"Unbind", &Fonts::body, &MainLayout::unbind, true},
    {kSettingsButton, Kind::button, L"", &Fonts::body, &MainLayout::settings, true},
    {kHousePaymailCaption, Kind::label, L"House paymail", &Fonts::small, &MainLayout::house_paymail_caption},
    {kHousePaymail, Kind::label, L"", &Fonts::body, &MainLayout::house_paymail},
    {kPaymentAddressCaption, Kind::label, L"Payment address", &Fonts::small, &MainLayout::payment_address_caption},
    {kPaymentAddress, Kind::label, L"", &Fonts::small, &MainLayout::payment_address},
    {kNameCaption, Kind::label, L"Name", &Fonts::small, &MainLayout::name_caption},
    {kNameField, Kind::field, L"", &Fonts::body, &MainLayout::name_field},
    {kNamePreview, Kind::label, L"name@your-site", &Fonts::body, &MainLayout::name_preview},
    {kNameHint, Kind::label, L"Pays this house paymail. Other names stay.", &Fonts::small, &MainLayout::name_hint},
    {kKeptNames, Kind::label, L"", &Fonts::small, &MainLayout::kept_names},
    {kInstallButton, Kind::button, L"Install plugin", &Fonts::body, &MainLayout::install, true},
    {kPublishButton, Kind::button, L"Publish", &Fonts::body, &MainLayout::publish, true},
    {kRemoveButton, Kind::button, L"Remove", &Fonts::body, &MainLayout::remove, true},
    {kCloseButton, Kind::button, L"Close", &Fonts::body, &MainLayout::close},
    {kStatusLine, Kind::wrapped_label, L"", &Fonts::small, &MainLayout::status},
    {kVersionLabel, Kind::label, L"", &Fonts::small, &MainLayout::version},
};

// The version label is no such label: it takes the mouse itself, and the texts that it shows have their room.
bool has_tip(const ControlRow& row)
{
    return (row.kind == Kind::label && row.id != kVersionLabel) || row.kind == Kind::wrapped_label;
}

HWND control(int id)
{
    return GetDlgItem(app_state().main_window, id);
}

HWND create_control(HWND parent, const ControlRow& row)
{
    switch (row.kind) {
    case Kind::button:
        return create_drawn_button(parent, row.id, row.text);
    case Kind::field:
        return create_field(parent, row.id, row.text);
    case Kind::wrapped_label:
        return create_label(parent, row.id, row.text, kWrappedLabel);
    case Kind::label:
        return create_label(parent, row.id, row.text, kOneLineLabel);
    }
    return nullptr;
}

// Only what the change of DPI has always reached: the payment address becomes body text then, and the Close button
// keeps the font that it was made with.
const Font* font_after_change(int id)
{
    if (id > kNameHint) return nullptr;
    const bool is_small = id == kStatusLine || id == kVersionLabel || (id >= kKeptNames && id <= kNameHint);
    return is_small ? &app_state().fonts.small : &app_state().fonts.body;
}

// `spared` is left alone: a button that is disabled for even a moment loses the focus.
void enable_work(bool enabled, int spared)
{
    for (const ControlRow& row : kControls)
        if (row.starts_work && row.id != spared) EnableWindow(control(row.id), enabled);
}

}  // namespace

void create_controls(HWND window)
{
    for (const ControlRow& row : kControls)
        set_font(create_control(window, row), app_state().fonts.*row.font);

    set_accessible_name(control(kSettingsButton), L"Settings");
    set_cue(control(kNameField), L"name");
    make_self_painting(control(kStatusLine), TextFlow::wrapped);
    const HWND version = control(kVersionLabel);
    SetWindowLongPtrW(version, GWL_STYLE, GetWindowLongPtrW(version, GWL_STYLE) | SS_NOTIFY);
    make_self_painting(version, TextFlow::one_line);

    app_state().tips = create_tips(window);
    for (const ControlRow& row : kControls)
        if (has_tip(row)) add_tip(app_state().tips, control(row.id));
}

void place_controls()
{
    for (const ControlRow& row : kControls) {
        const Rect& place = app_state().layout.*row.place;
        // Not repainted one by one: who lays out has the whole window painted afterwards.
        MoveWindow(control(row.id), place.x, place.y, place.width, place.height, FALSE);
        if (has_tip(row)) move_tip(app_state().tips, control(row.id));
    }
}

void reassign_control_fonts()
{
    for (const ControlRow& row : kControls)
        if (const Font* font = font_after_change(row.id)) set_font(control(row.id), *font);
}

void answer_tip(NMTTDISPINFOW& question)
{
    const int id = static_cast<int>(question.hdr.idFrom);
    answer_tip(question, control(id), id == kStatusLine ? TextFlow::wrapped : TextFlow::one_line);
}

void set_control_text(int id, const std::string& utf8)
{
    // A control that says it already is not painted again.
    if (control_text(control(id)) != utf8) SetWindowTextW(control(id), widen(utf8).c_str());
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
    const auto row = std::ranges::find(kControls, waited_button, &ControlRow::id);
    if (row != std::end(kControls)) SetWindowTextW(control(waited_button), row->text);
    enable_work(true, 0);
}
