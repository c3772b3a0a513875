#include "orders.h"

#include "connect_answers.h"

#include <shellapi.h>

#include <vector>

namespace {

using Words = std::vector<std::wstring>;

Words words_of(const std::wstring& command_line)
{
    int count = 0;
    wchar_t** const words = CommandLineToArgvW(command_line.c_str(), &count);
    const Words all(words, words + count);
    LocalFree(static_cast<HLOCAL>(words));
    return all;
}

std::wstring environment_variable(const wchar_t* name)
{
    std::wstring value(GetEnvironmentVariableW(name, nullptr, 0), L'\0');
    value.resize(GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size())));
    return value;
}

std::optional<int> show_command(const std::wstring& word)
{
    if (word == L"hidden") return SW_HIDE;
    if (word == L"visible") return SW_SHOWNORMAL;
    if (word == L"minimised") return SW_SHOWMINIMIZED;
    return std::nullopt;
}

bool take_option(const std::wstring& option, const std::wstring& value, Orders& orders)
{
    if (option == L"--hold-lock-until") {
        orders.release_file = value;
        return true;
    }
    if (option == L"--connect") {
        orders.reply = reply_for(value);
        return orders.reply.has_value();
    }
    const auto show = show_command(value);
    if (option != L"--show" || !show) return false;
    orders.show = *show;
    return true;
}

}  // namespace

std::optional<Orders> read_orders()
{
    Words words = words_of(GetCommandLineW());
    if (words.size() == 1) words = words_of(L"Vaultry.exe " + environment_variable(L"VAULTRY_ORDERS"));
    if (words.size() < 2 || words.size() % 2 != 0) return std::nullopt;
    Orders orders;
    orders.count_file = words[1];
    for (std::size_t i = 2; i < words.size(); i += 2)
        if (!take_option(words[i], words[i + 1], orders)) return std::nullopt;
    return orders;
}
