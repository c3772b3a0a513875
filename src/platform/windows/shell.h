// What is handed to the shell: web pages for the user's browser, a file for Explorer to show. The shell makes a command
// line of it, whose rules belong to the program that reads it; so only what stays one word there is handed over.
#pragma once

#include <windows.h>

#include <objbase.h>

#include <string>
#include <string_view>

// This thread's single-threaded apartment, which the shell's functions ask for.
class ComApartment {
public:
    ComApartment() : m_is_entered(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {}
    ComApartment(const ComApartment&) = delete;
    ComApartment& operator=(const ComApartment&) = delete;
    ~ComApartment()
    {
        if (m_is_entered) CoUninitialize();
    }

private:
    bool m_is_entered;
};

// Whether `text` between quotation marks stays one word: it holds neither a quotation mark nor a control character.
bool can_be_quoted(std::wstring_view text);

// Whether it is one word as it stands: it holds no blank either.
bool is_one_word(std::wstring_view text);

// Has the browser open `address`, UTF-8; `owner` is the window that owns whatever Windows itself has to say about it.
// Nothing but https is opened: the shell takes other strings for programs and files, and would run them. Nor is an
// address with a quotation mark, a blank or a control character, of which the browser's command line could make several
// words. False when nothing was opened. For the user-interface thread.
bool open_page(const std::string& address, HWND owner = nullptr);

// Opens in Explorer, Windows' file manager, the folder that `path` lies in with the file selected. `owner`: the window
// that shell errors belong to; may be null. Nothing is said when it fails. On a thread that has entered a COM
// apartment.
void show_in_explorer(const std::string& path, HWND owner);
