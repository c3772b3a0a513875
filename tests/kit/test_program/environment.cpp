#include "kit/test_program/environment.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <unistd.h>

#include <cstdlib>
#include <string_view>
#endif

namespace {

#ifdef _WIN32

void set_variable(const std::wstring& name, const wchar_t* value)
{
    SetEnvironmentVariableW(name.c_str(), value);
}

#else

void set_variable(const std::string& name, const char* value)
{
    if (value == nullptr)
        unsetenv(name.c_str());
    else
        setenv(name.c_str(), value, 1);
}

#endif

}  // namespace

#ifdef _WIN32

Environment current_environment()
{
    Environment found;
    wchar_t* const block = GetEnvironmentStringsW();
    for (const wchar_t* line = block; *line != L'\0'; line += std::wstring(line).size() + 1) {
        const std::wstring text(line);
        const std::size_t sign = text.find(L'=', 1);  // the drives' current folders have names that begin with it
        if (sign != std::wstring::npos) found[text.substr(0, sign)] = text.substr(sign + 1);
    }
    FreeEnvironmentStringsW(block);
    return found;
}

#else

Environment current_environment()
{
    Environment found;
    for (char** line = environ; line != nullptr && *line != nullptr; ++line) {
        const std::string_view text(*line);
        const std::size_t sign = text.find('=');
        if (sign != std::string_view::npos) found[std::string(text.substr(0, sign))] = text.substr(sign + 1);
    }
    return found;
}

#endif

void restore_environment(const Environment& environment)
{
    const Environment now = current_environment();
    for (const auto& [name, value] : now)
        if (!environment.contains(name)) set_variable(name, nullptr);
    for (const auto& [name, value] : environment)
        if (const auto found = now.find(name); found == now.end() || found->second != value)
            set_variable(name, value.c_str());
}
