// What the user is told about the settings file. Everything else that goes wrong with it passes in silence.
#pragma once

#include <string>

enum class SettingsNotice {
    none,
    unreadable,          // the file is there, and cannot be read: held, no right to it, a bad disk
    damaged,             // the file holds something else than the program's settings
    password_is_locked,  // the saved password does not open: another Windows user's, another PC's, or damaged
    password_is_lost,    // Windows did not protect the password that was typed
    not_saved,           // what stands in the file would have been lost
};

// The sentence for the status line; empty for `none`.
std::wstring notice_sentence(SettingsNotice notice);
