// The controls of the main window. What they are is a table; this makes them, places them and speaks to them.
#pragma once

#include "app/layout.h"

#include <windows.h>

#include <commctrl.h>

#include <string>

enum ControlId : int {
    kConnectButton = 1001,
    kUnbindButton = 1002,
    kSettingsButton = 1003,
    kNameField = 1004,
    kInstallButton = 1005,
    kPublishButton = 1006,
    kRemoveButton = 1007,
    kStatusLine = 1008,
    kVersionLabel = 1009,
    kHousePaymail = 1010,
    kPaymentAddress = 1011,
    kNamePreview = 1012,
    kKeptNames = 1013,
    kHousePaymailCaption = 1014,
    kPaymentAddressCaption = 1015,
    kNameCaption = 1016,
    kNameHint = 1017,
    kCloseButton = 1018,
};

void create_controls(HWND window);  // where app_state().layout says
void create_tips_of_controls();  // once, after create_controls: it takes as long, and nobody rests the mouse there yet
void place_controls();           // there again, after it has changed
void reassign_control_fonts();   // after a change of DPI

// The whole text of a label that shows only a part of it.
void answer_tip(NMTTDISPINFOW& question);

void set_control_text(int id, const std::string& utf8);
void show_kept_names(const std::string& utf8);  // the line can be pressed unless it is empty
std::string name_field_text();                  // trimmed
void set_status(const std::wstring& text);

// While a flow runs the buttons that would start another one are disabled, except the one that the user pressed, which
// reads "Wait...".
void show_waiting(int button);
void show_idle(int waited_button);  // 0: no label to give back
