// Works the program's windows from outside, as a user's hands and eyes would: finds them, reads their controls, types,
// presses. One command a run; what it finds goes to standard output as UTF-8. Exit status 3: not found, or too late;
// 1 is left to Wine, which ends so when it cannot even start a program.
#include "app/windows/controls.h"

#include <windows.h>

#include <shellapi.h>

#include <algorithm>
#include <functional>
#include <iostream>
#include <iterator>
#include <map>
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
    std::cout << r.left << ' ' << r.top << ' ' << r.right << ' ' << r.bottom << '\n';
    return true;
}

bool print_text(HWND handle)
{
    if (handle == nullptr) return false;
    std::cout << utf8(text_of(handle)) << '\n';
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
             std::cout << client.right << ' ' << client.bottom << '\n';
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

int main()
{
    int count = 0;
    wchar_t** words = CommandLineToArgvW(GetCommandLineW(), &count);
    const Arguments all(words, words + count);
    LocalFree(static_cast<HLOCAL>(words));
    const auto command = all.size() > 1 ? commands().find(all[1]) : commands().end();
    if (command == commands().end()) {
        std::cerr << "drive: no such command\n";
        return 2;
    }
    try {
        return command->second(Arguments(all.begin() + 2, all.end())) ? 0 : 3;
    } catch (const std::exception&) {
        std::cerr << "drive: an argument is missing or no number\n";
        return 2;
    }
}
