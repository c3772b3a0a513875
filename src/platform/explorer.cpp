#include "platform/explorer.h"

#include "platform/windows_path.h"

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

}  // namespace

void show_in_explorer(const std::string& path, WindowHandle owner)
{
    const std::wstring wide = shell_path(path);
    if (select_in_folder(wide)) return;
    const std::wstring parameters = L"/select," + wide;
    ShellExecuteW(owner, L"open", L"explorer.exe", parameters.c_str(), nullptr, SW_SHOWNORMAL);
}
