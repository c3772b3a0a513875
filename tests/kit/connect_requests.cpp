#include "kit/connect_requests.h"

#include <filesystem>
#include <stdexcept>

std::vector<std::string> connect_request_ids(const TestFolder& folder)
{
    constexpr std::string_view kEnding = ".req.json";
    const std::string path = folder.path() + "/Corvane/connect";
    std::vector<std::string> ids;
    std::error_code error;  // no folder: no requests
    for (const auto& file : std::filesystem::directory_iterator(std::u8string(path.begin(), path.end()), error)) {
        const std::string name = file.path().filename().string();
        if (name.ends_with(kEnding)) ids.push_back(name.substr(0, name.size() - kEnding.size()));
    }
    return ids;
}

void reply_to_connect_request(const TestFolder& folder, const std::string& reply)
{
    const auto ids = connect_request_ids(folder);
    if (ids.size() != 1) throw std::runtime_error("there is not exactly one connect request");
    folder.write("connect/" + ids[0] + ".rep.json", reply);
}
