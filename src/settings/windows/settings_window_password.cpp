#include "settings/windows/settings_window_password.h"

#include "platform/text_conversion.h"
#include "ui/windows/control_table.h"

#include <commctrl.h>

#include <string>

namespace {

constexpr wchar_t kMask = 0x2022;  // a bullet

// More than any password is long, spaces between its groups included.
constexpr std::size_t kRoom = 256;

void replace(HWND field, WPARAM from, LPARAM to, const wchar_t* text, bool can_undo)
{
    SendMessageW(field, EM_SETSEL, from, to);
    SendMessageW(field, EM_REPLACESEL, can_undo ? TRUE : FALSE, reinterpret_cast<LPARAM>(text));
}

// A control that deletes a string holds it in a block of its own meanwhile, and frees that as it stands: a single
// letter tells nothing. From the end, where a surrogate pair that goes as one takes no letter along that is still to
// come.
void blank_letter_by_letter(HWND field)
{
    for (int last = GetWindowTextLengthW(field); last > 0; --last)
        replace(field, static_cast<WPARAM>(last - 1), last, L" ", false);
}

// The control's text and what it would undo: both get that much room, and both hold nothing but blanks there.
void fill_with_blanks(HWND field)
{
    SetWindowTextW(field, std::wstring(kRoom, L' ').c_str());
    replace(field, 0, -1, L"", true);
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
    fill_with_blanks(field);
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

// The control frees its buffers as they stand, and an emptied text is only cut short.
void wipe_password_field(HWND field)
{
    blank_letter_by_letter(field);
    fill_with_blanks(field);
}
