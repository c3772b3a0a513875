#include "platform/wallet_app.h"

#include "platform/environment.h"
#include "platform/files.h"
#include "platform/text_conversion.h"
#include "platform/windows/shell.h"
#include "text/path.h"

#include <windows.h>

#include <shellapi.h>

namespace {

constexpr wchar_t kProgram[] = L"\\Vaultry.exe";

HWND wallet_window()
{
    return FindWindowW(L"CorvaneVaultryShell", nullptr);
}

void bring_forward(HWND window)
{
    if (IsIconic(window)) ShowWindow(window, SW_RESTORE);
    SetForegroundWindow(window);
}

// A folder in which nobody can tell whether the program is there is worth a try.
bool may_hold_program(const std::wstring& folder)
{
    return file_status(narrow(folder + kProgram)) != FileStatus::missing;
}

bool start_in(const std::wstring& folder)
{
    constexpr INT_PTR kLargestError = 32;
    const ComApartment apartment;
    const HINSTANCE started =
        ShellExecuteW(nullptr, L"open", (folder + kProgram).c_str(), nullptr, folder.c_str(), SW_SHOWNORMAL);
    return reinterpret_cast<INT_PTR>(started) > kLargestError;
}

}  // namespace

void notify_wallet_app()
{
    if (const HWND window = wallet_window())
        PostMessageW(window, RegisterWindowMessageW(L"Corvane.PaynameAccepted"), 0, 0);
}

bool raise_wallet_app()
{
    if (const HWND window = wallet_window()) {
        bring_forward(window);
        return true;
    }
    const std::wstring own_folder = widen(executable_folder());
    const std::wstring folder_above(without_last_element(own_folder));
    for (const std::wstring& folder : {own_folder, folder_above})
        if (may_hold_program(folder)) return start_in(folder);
    return false;
}
