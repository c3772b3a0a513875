// What a screen reader is told (through IAccessible) of the controls that the program draws itself.
#pragma once

#include <windows.h>

#include <oleacc.h>

// Window property of a control that set_accessible_name has named.
inline constexpr wchar_t kAccessibleNameProperty[] = L"payname.name";

// What kind of thing a control is.
struct AccessibleKind {
    LONG role;              // ROLE_SYSTEM_...
    LONG more_state;        // STATE_SYSTEM_... that Windows does not see by itself
    const wchar_t* action;  // what pressing it does, in a word
};

inline constexpr AccessibleKind kAccessibleButton{ROLE_SYSTEM_PUSHBUTTON, 0, L"Press"};
inline constexpr AccessibleKind kAccessibleLink{ROLE_SYSTEM_LINK, STATE_SYSTEM_LINKED, L"Jump"};

// The answer of `control` to WM_GETOBJECT for OBJID_CLIENT: itself as an object of `kind`, which outlives neither its
// window nor its last user. 0, which lets Windows answer, when this Windows has no accessibility.
LRESULT answer_screen_reader(HWND control, WPARAM wparam, const AccessibleKind& kind);

// Sets the name of a control whose window text does not say it, and tells screen readers that it changed. `name` lives
// as long as the process.
void set_accessible_name(HWND control, const wchar_t* name);

// Has the text of `label` read out, wherever the focus is, as soon as the reader is silent. For a label whose text has
// just changed.
void announce_text(HWND label);
