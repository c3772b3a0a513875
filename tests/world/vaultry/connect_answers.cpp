#include "connect_answers.h"

#include <nlohmann/json.hpp>

#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <vector>

namespace {

using nlohmann::json;
using std::filesystem::path;

constexpr std::wstring_view kRequestEnding = L".req.json";

std::string utf8(const std::wstring& wide)
{
    const int length = static_cast<int>(wide.size());
    const int size = WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, narrow.data(), size, nullptr, nullptr);
    return narrow;
}

json read_json(const path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return json::parse(stream, nullptr, false);
}

// Replaced whole: the other program takes a half-written reply for a refusal.
void write_reply(const path& file, const std::string& reply)
{
    path fresh = file;
    fresh += L".new";
    std::ofstream(fresh, std::ios::binary) << reply;
    MoveFileExW(fresh.c_str(), file.c_str(), MOVEFILE_REPLACE_EXISTING);
}

bool is_decimal(const std::string& text)
{
    return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

bool is_as_agreed(const json& request, const std::string& id)
{
    if (!request.is_object() || request.size() != 4 || !is_decimal(id)) return false;
    for (const char* member : {"app", "id", "instance"})
        if (!request.contains(member) || !request[member].is_string()) return false;
    if (!request.contains("ts") || !request["ts"].is_number_integer()) return false;
    return request["id"] == id && request["app"] == "Brasslet" && !request["instance"].get<std::string>().empty() &&
           request["ts"].get<std::int64_t>() == std::stoll(id) / 1000;
}

}  // namespace

std::optional<std::string> reply_for(const std::wstring& answer)
{
    constexpr std::wstring_view kApprove = L"approve:";
    constexpr std::wstring_view kRaw = L"raw:";
    if (answer == L"deny") return json{{"ok", false}}.dump();
    if (answer == L"approve") return json{{"ok", true}}.dump();
    if (answer.starts_with(kApprove))
        return json{{"ok", true}, {"wallet_id", utf8(answer.substr(kApprove.size()))}}.dump();
    if (answer.starts_with(kRaw)) return utf8(answer.substr(kRaw.size()));
    return std::nullopt;
}

bool answer_requests(const std::wstring& data_directory, const std::string& reply)
{
    std::error_code error;
    std::vector<path> requests;
    for (const auto& file : std::filesystem::directory_iterator(path(data_directory) / L"connect", error))
        if (file.path().native().ends_with(kRequestEnding)) requests.push_back(file.path());

    for (const path& file : requests) {
        const std::wstring& name = file.native();
        const std::wstring without_ending = name.substr(0, name.size() - kRequestEnding.size());
        const path reply_file = without_ending + L".rep.json";
        if (std::filesystem::exists(reply_file, error)) continue;
        const json request = read_json(file);
        if (request.is_discarded()) continue;  // still being written: the next look sees all of it
        if (!is_as_agreed(request, utf8(path(without_ending).filename().native()))) return false;
        write_reply(reply_file, reply);
    }
    return true;
}
