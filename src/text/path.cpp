#include "text/path.h"

namespace {

bool is_separator(wchar_t c)
{
    return c == L'\\' || c == L'/';
}

std::size_t server_root_length(std::wstring_view path)
{
    std::size_t length = 2;
    while (length < path.size() && !is_separator(path[length]))
        ++length;
    return length < path.size() ? length + 1 : length;
}

std::size_t root_length(std::wstring_view path)
{
    constexpr std::wstring_view kVerbatim = L"\\\\?\\";
    if (path.starts_with(kVerbatim)) return kVerbatim.size() + root_length(path.substr(kVerbatim.size()));
    if (path.size() >= 2 && path[1] == L':') return path.size() > 2 && is_separator(path[2]) ? 3 : 2;
    if (path.size() >= 2 && is_separator(path[0]) && is_separator(path[1])) return server_root_length(path);
    return !path.empty() && is_separator(path[0]) ? 1 : 0;
}

}  // namespace

std::wstring_view without_last_element(std::wstring_view path)
{
    const std::size_t root = root_length(path);
    std::size_t end = path.size();
    while (end > root && !is_separator(path[end - 1]))
        --end;
    while (end > root && is_separator(path[end - 1]))
        --end;
    return path.substr(0, end);
}
