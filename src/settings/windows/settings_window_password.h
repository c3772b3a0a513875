// The field for the application password. What stands in it is a secret: no copy of it outlives its use, and neither
// does the edit control's own text.
#pragma once

#include "text/secret.h"

#include <windows.h>

// An empty field, masked; its cue tells whether a password is stored.
void prepare_password_field(HWND field, bool password_is_stored);

SecretText password_in(HWND field);  // as typed
void put_password(HWND field, const SecretText& password);

// In clear, or masked again. The field is painted anew.
void show_password(HWND field, bool is_shown);

// To be called while the field still exists.
void wipe_password_field(HWND field);
