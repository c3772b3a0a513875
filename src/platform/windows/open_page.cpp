#include "platform/open_page.h"

#include "platform/shell_text.h"
#include "platform/text_conversion.h"

#include <windows.h>

#include <shellapi.h>

bool open_page(const std::string& address, WindowHandle owner)
{
    const std::wstring page = widen(address);
    if (!page.starts_with(L"https://") || !is_one_word(page)) return false;
    constexpr INT_PTR kLastError = 32;  // the values up to here say why not
    const HINSTANCE answer = ShellExecuteW(owner, L"open", page.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
    return reinterpret_cast<INT_PTR>(answer) > kLastError;
}
