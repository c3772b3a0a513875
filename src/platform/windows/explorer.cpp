#include "platform/explorer.h"

#include "platform/shell_text.h"
#include "platform/windows/windows_path.h"

#include <windows.h>

#include <objbase.h>
#include <shellapi.h>
#include <shlobj.h>

#include <memory>

namespace {

struct TaskMemoryFree {
    void operator()(void* memory) const { CoTaskMemFree(memory); }
};
using ItemList = std::unique_ptr<ITEMIDLIST, TaskMemoryFree>;

// The shell's parser knows "\" only.
std::wstring shell_path(const std::string& path)
{
    std::wstring wide = wide_path(path);
    for (wchar_t& c : wide)
        if (c == L'/') c = L'\\';
    return wide;
}

bool select_in_folder(const std::wstring& path)
{
    LPITEMIDLIST parsed = nullptr;
    if (FAILED(SHParseDisplayName(path.c_str(), nullptr, &parsed, 0, nullptr))) return false;
    const ItemList item(parsed);
    return SUCCEEDED(SHOpenFolderAndSelectItems(item.get(), 0, nullptr, 0));
}

// By its full path: of a name alone the shell finds what lies in the current folder first. The folder is the system's
// own; the one of GetWindowsDirectory may be the user's on a terminal server.
std::wstring explorer()
{
    wchar_t folder[MAX_PATH];
    const UINT length = GetSystemWindowsDirectoryW(folder, MAX_PATH);
    return length > 0 && length < MAX_PATH ? std::wstring(folder, length) + L"\\explorer.exe" : std::wstring();
}

}  // namespace

void show_in_explorer(const std::string& path, WindowHandle owner)
{
    const std::wstring wide = shell_path(path);
    if (select_in_folder(wide)) return;
    const std::wstring program = explorer();
    if (program.empty() || !can_be_quoted(wide)) return;
    const std::wstring parameters = L"/select,\"" + wide + L"\"";
    ShellExecuteW(owner, L"open", program.c_str(), parameters.c_str(), nullptr, SW_SHOWNORMAL);
}
