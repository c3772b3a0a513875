#include "windows_kit/machine.h"

#include "platform/files.h"
#include "platform/windows/windows_version.h"
#include "text/ascii.h"
#include "wallet/digest.h"

#include <cstdio>

namespace {

using WineVersion = const char*(CDECL*)();

WineVersion wine_version()
{
    return system_function<WineVersion>(L"ntdll.dll", "wine_get_version");
}

}  // namespace

bool is_wine()
{
    return wine_version() != nullptr;
}

std::string system_name()
{
    const WindowsVersion version = windows_version();
    const std::string windows = "Windows " + std::to_string(version.major) + "." + std::to_string(version.minor) + "." +
                                std::to_string(version.build);
    if (!is_wine()) return windows;
    return std::string("Wine ") + wine_version()() + ", which says that it is " + windows;
}

std::string local_time()
{
    SYSTEMTIME now{};
    GetLocalTime(&now);
    char text[32] = {};
    std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d", now.wYear, now.wMonth, now.wDay, now.wHour,
                  now.wMinute);
    return text;
}

std::string sha256_of_file(const std::string& path)
{
    const auto bytes = read_file(path);
    const auto digest = bytes ? sha256(bytes_of(*bytes)) : std::nullopt;
    return digest ? hex_encode(digest->bytes()) : std::string();
}
