#include "settings/settings_window_password.h"

#include "platform/text_conversion.h"
#include "ui/child_controls.h"

#include <commctrl.h>

#include <algorithm>

namespace {

constexpr wchar_t kMask = 0x2022;  // a bullet

// More than any password is long, spaces between its groups included.
constexpr std::size_t kRoom = 256;

void overwrite(HWND field, std::size_t length)
{
    SetWindowTextW(field, std::wstring(length, L' ').c_str());
    SetWindowTextW(field, L"");
    SendMessageW(field, EM_EMPTYUNDOBUFFER, 0, 0);
}

void wipe_wide(std::wstring& text)
{
    wipe(text.data(), text.size() * sizeof(wchar_t));
}

}  // namespace

void prepare_password_field(HWND field, bool password_is_stored)
{
    // An edit control whose text outgrows its buffer moves, and what it leaves behind is wiped by nobody: it gets its
    // room before there is a secret in it.
    overwrite(field, kRoom);
    SendMessageW(field, EM_SETPASSWORDCHAR, kMask, 0);
    set_cue(field, password_is_stored ? L"Saved on this PC" : L"From Application Passwords");
}

SecretText password_in(HWND field)
{
    std::wstring wide(static_cast<std::size_t>(GetWindowTextLengthW(field)) + 1, L'\0');
    const int length = GetWindowTextW(field, wide.data(), static_cast<int>(wide.size()));
    SecretText password(narrow(std::wstring_view(wide).substr(0, static_cast<std::size_t>(length))));
    wipe_wide(wide);
    return password;
}

void put_password(HWND field, const SecretText& password)
{
    std::wstring wide = widen(password.text());
    SetWindowTextW(field, wide.c_str());
    wipe_wide(wide);
}

void show_password(HWND field, bool is_shown)
{
    SendMessageW(field, EM_SETPASSWORDCHAR, is_shown ? 0 : kMask, 0);
    InvalidateRect(field, nullptr, TRUE);
}

// The control frees its buffer as it stands, and an emptied text is only cut short: blanks take the secret's place
// first.
void wipe_password_field(HWND field)
{
    overwrite(field, std::max(kRoom, static_cast<std::size_t>(GetWindowTextLengthW(field))));
}
