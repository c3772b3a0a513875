#include "platform/windows/shell.h"

#include "platform/text_conversion.h"
#include "platform/windows/windows_path.h"
#include "text/freed_by.h"

#include <shellapi.h>
#include <shlobj.h>

#include <algorithm>
#include <memory>

namespace {

bool is_quote_or_control(wchar_t c)
{
    return c == L'"' || c < 0x20 || (c >= 0x7F && c < 0xA0);
}

// Those that Unicode calls separators.
bool is_blank(wchar_t c)
{
    return c == 0x20 || c == 0xA0 || c == 0x1680 || (c >= 0x2000 && c <= 0x200A) || c == 0x2028 || c == 0x2029 ||
           c == 0x202F || c == 0x205F || c == 0x3000;
}

using ItemList = std::unique_ptr<ITEMIDLIST, FreedBy<CoTaskMemFree>>;

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

bool can_be_quoted(std::wstring_view text)
{
    return std::ranges::none_of(text, is_quote_or_control);
}

bool is_one_word(std::wstring_view text)
{
    return can_be_quoted(text) && std::ranges::none_of(text, is_blank);
}

bool open_page(const std::string& address, HWND owner)
{
    const std::wstring page = widen(address);
    if (!page.starts_with(L"https://") || !is_one_word(page)) return false;
    constexpr INT_PTR kLastError = 32;  // the values up to here say why not
    const HINSTANCE answer = ShellExecuteW(owner, L"open", page.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
    return reinterpret_cast<INT_PTR>(answer) > kLastError;
}

void show_in_explorer(const std::string& path, HWND owner)
{
    const std::wstring wide = shell_path(path);
    if (select_in_folder(wide)) return;
    const std::wstring program = explorer();
    if (program.empty() || !can_be_quoted(wide)) return;
    const std::wstring parameters = L"/select,\"" + wide + L"\"";
    ShellExecuteW(owner, L"open", program.c_str(), parameters.c_str(), nullptr, SW_SHOWNORMAL);
}
