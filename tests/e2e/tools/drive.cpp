// Works the program's windows from outside, as a user's hands and eyes would: finds them, reads their controls, types,
// presses. Serves until the end of its standard input, because starting a process under Wine takes longer than any
// command. All is UTF-8:
//
//     a command: its words, each followed by a zero byte, and a line feed
//     its reply: "done", "no" (not there, or too late) or "wrong" (no such command), a blank, the size of what was
//     found
//                in bytes, a line feed, and what was found
#include "app/windows/controls.h"

#include <windows.h>

#include <fcntl.h>
#include <io.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <iostream>
#include <iterator>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace {

constexpr wchar_t kWindowClass[] = L"CorvaneBrassletShell";
constexpr wchar_t kSettingsClass[] = L"CorvaneBrassletSettings";
constexpr int kSettingsWindow = 2000;   // stands for the settings window itself; its controls have the ids after it
constexpr UINT kAnswerWithin = 10'000;  // milliseconds
constexpr int kProvisionalSize = 10;    // pixels, of a button before the window is laid out

// The one that works reads "Wait...".
constexpr int kWorkButtons[] = {kConnectButton, kInstallButton, kPublishButton, kRemoveButton};

using Arguments = std::vector<std::wstring>;

std::string utf8(const std::wstring& wide)
{
    if (wide.empty()) return {};
    const int size =
        WideCharToMultiByte(CP_UTF8, 0, wide.data(), static_cast<int>(wide.size()), nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, wide.data(), static_cast<int>(wide.size()), narrow.data(), size, nullptr, nullptr);
    return narrow;
}

std::wstring utf16(const std::string& narrow)
{
    if (narrow.empty()) return {};
    const int bytes = static_cast<int>(narrow.size());
    const int size = MultiByteToWideChar(CP_UTF8, 0, narrow.data(), bytes, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(size), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, narrow.data(), bytes, wide.data(), size);
    return wide;
}

// What the command in hand has found.
std::ostringstream& found()
{
    static std::ostringstream text;
    return text;
}

// False when `condition` did not come true within `milliseconds`.
bool wait_until(const std::function<bool()>& condition, ULONGLONG milliseconds)
{
    const ULONGLONG end = GetTickCount64() + milliseconds;
    while (!condition()) {
        if (GetTickCount64() >= end) return false;
        Sleep(10);
    }
    return true;
}

// Whether the keys go to the control.
bool has_focus(HWND control)
{
    GUITHREADINFO thread{};
    thread.cbSize = sizeof thread;
    return GetGUIThreadInfo(GetWindowThreadProcessId(control, nullptr), &thread) != 0 && thread.hwndFocus == control &&
           GetForegroundWindow() == GetAncestor(control, GA_ROOT);
}

HWND window()
{
    return FindWindowW(kWindowClass, nullptr);
}

HWND vaultry_window()
{
    return FindWindowW(L"CorvaneVaultryShell", nullptr);
}

HWND settings_window()
{
    return FindWindowW(kSettingsClass, nullptr);
}

// The update question.
HWND question()
{
    const HWND box = FindWindowW(L"#32770", L"Brasslet");
    return box != nullptr && GetWindow(box, GW_OWNER) == window() ? box : nullptr;
}

HWND control(const Arguments& arguments)
{
    if (arguments.empty()) return nullptr;
    const int id = std::stoi(arguments[0]);
    if (id == kSettingsWindow) return settings_window();
    return GetDlgItem(id > kSettingsWindow ? settings_window() : window(), id);
}

std::wstring text_of(HWND handle)
{
    wchar_t text[2048] = {};
    DWORD_PTR length = 0;
    SendMessageTimeoutW(handle, WM_GETTEXT, std::size(text), reinterpret_cast<LPARAM>(text), SMTO_BLOCK, kAnswerWithin,
                        &length);
    return std::wstring(text, length);
}

bool send(HWND handle, UINT message, WPARAM wparam, LPARAM lparam)
{
    DWORD_PTR result = 0;
    return handle != nullptr &&
           SendMessageTimeoutW(handle, message, wparam, lparam, SMTO_BLOCK, kAnswerWithin, &result) != 0;
}

bool print_rectangle(HWND handle)
{
    RECT r;
    if (handle == nullptr || !GetWindowRect(handle, &r)) return false;
    found() << r.left << ' ' << r.top << ' ' << r.right << ' ' << r.bottom;
    return true;
}

bool print_text(HWND handle)
{
    if (handle == nullptr) return false;
    found() << utf8(text_of(handle));
    return true;
}

bool is_ready()
{
    RECT button{};
    GetClientRect(GetDlgItem(window(), kCloseButton), &button);
    return IsWindowVisible(window()) != FALSE && button.right > kProvisionalSize && send(window(), WM_NULL, 0, 0);
}

bool is_idle()
{
    return std::ranges::none_of(kWorkButtons, [](int id) { return text_of(GetDlgItem(window(), id)) == L"Wait..."; });
}

const std::map<std::wstring, std::function<bool(const Arguments&)>>& commands()
{
    static const std::map<std::wstring, std::function<bool(const Arguments&)>> all = {
        // wait-window: until the main window is there, laid out, and takes messages
        {L"wait-window", [](const Arguments&) { return wait_until(is_ready, 60'000); }},
        // wait-gone: until there is no main window
        {L"wait-gone", [](const Arguments&) { return wait_until([] { return window() == nullptr; }, 30'000); }},
        // wait-idle SECONDS: until no flow runs
        {L"wait-idle",
         [](const Arguments& a) { return wait_until(is_idle, static_cast<ULONGLONG>(std::stoi(a.at(0))) * 1000); }},
        // wait-focus ID: until the keys go to the control
        {L"wait-focus", [](const Arguments& a) { return wait_until([&a] { return has_focus(control(a)); }, 30'000); }},
        // wait-text ID [TEXT]: until the control has the text, or any text at all
        {L"wait-text",
         [](const Arguments& a) {
             return wait_until(
                 [&a] {
                     const std::wstring text = text_of(control(a));
                     return a.size() > 1 ? text == a[1] : !text.empty();
                 },
                 60'000);
         }},
        // text ID, rectangle [ID]: of a control; the rectangle is in screen pixels
        {L"text", [](const Arguments& a) { return print_text(control(a)); }},
        {L"rectangle", [](const Arguments& a) { return print_rectangle(a.empty() ? window() : control(a)); }},
        // client-size [ID]: of the window or of a control, in pixels
        {L"client-size",
         [](const Arguments& a) {
             RECT client;
             if (!GetClientRect(a.empty() ? window() : control(a), &client)) return false;
             found() << client.right << ' ' << client.bottom;
             return true;
         }},
        // is-enabled ID
        {L"is-enabled", [](const Arguments& a) { return IsWindowEnabled(control(a)) != FALSE; }},
        // type ID TEXT: the text of an edit field
        {L"type",
         [](const Arguments& a) { return send(control(a), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(a.at(1).c_str())); }},
        // press ID: returns when the window has taken the press
        {L"press", [](const Arguments& a) { return send(control(a), BM_CLICK, 0, 0); }},
        // wait-question, question, answer ID: until the update question is there; its text; the press of its button
        {L"wait-question",
         [](const Arguments&) { return wait_until([] { return IsWindowVisible(question()) != FALSE; }, 60'000); }},
        {L"question", [](const Arguments&) { return print_text(GetDlgItem(question(), 0xFFFF)); }},
        {L"answer",
         [](const Arguments& a) { return send(GetDlgItem(question(), std::stoi(a.at(0))), BM_CLICK, 0, 0); }},
        // question-rectangle: of the box, in screen pixels
        {L"question-rectangle", [](const Arguments&) { return print_rectangle(question()); }},
        // answers: the window takes messages
        {L"answers", [](const Arguments&) { return send(window(), WM_NULL, 0, 0); }},
        // close: the window, if it is there
        {L"close",
         [](const Arguments&) {
             const HWND there = window();
             return there != nullptr && PostMessageW(there, WM_CLOSE, 0, 0) != FALSE;
         }},
        // close-folder TITLE: every window of the file manager that shows the folder of this name
        {L"close-folder",
         [](const Arguments& a) {
             return wait_until(
                 [&a] {
                     const HWND folder = FindWindowW(nullptr, a.at(0).c_str());
                     PostMessageW(folder, WM_CLOSE, 0, 0);
                     return folder == nullptr;
                 },
                 30'000);
         }},
        // close-vaultry: the window of the wallet application, and wait until it is gone
        {L"close-vaultry",
         [](const Arguments&) {
             PostMessageW(vaultry_window(), WM_CLOSE, 0, 0);
             return wait_until([] { return vaultry_window() == nullptr; }, 30'000);
         }},
        {L"minimise", [](const Arguments&) { return ShowWindow(window(), SW_MINIMIZE) != FALSE; }},
        {L"is-minimised", [](const Arguments&) { return IsIconic(window()) != FALSE; }},
    };
    return all;
}

}  // namespace

namespace {

// The words of the next command. False at the end of the input.
bool read_command(Arguments& words)
{
    words.clear();
    std::string word;
    for (int c = std::cin.get(); c != std::char_traits<char>::eof(); c = std::cin.get()) {
        if (c == '\0') {
            words.push_back(utf16(word));
            word.clear();
        } else if (c == '\n' && word.empty()) {
            return true;
        } else {
            word += static_cast<char>(c);
        }
    }
    return false;
}

const char* carry_out(const Arguments& words)
{
    const auto command = words.empty() ? commands().end() : commands().find(words[0]);
    if (command == commands().end()) return "wrong";
    try {
        return command->second(Arguments(words.begin() + 1, words.end())) ? "done" : "no";
    } catch (const std::exception&) {  // an argument is missing or not a number
        return "wrong";
    }
}

}  // namespace

int main()
{
    // Pixels are those of the screen, whatever its resolution was when this began.
    SetProcessDpiAwarenessContext(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2);
    if (_setmode(_fileno(stdin), _O_BINARY) == -1 || _setmode(_fileno(stdout), _O_BINARY) == -1) return 1;
    for (Arguments words; read_command(words);) {
        found().str({});
        const char* state = carry_out(words);
        const std::string text = found().str();
        std::cout << state << ' ' << text.size() << '\n' << text << std::flush;
    }
    return 0;
}
