#include "windows_kit/site/recordings.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>

namespace {

std::string next_line(std::string& text)
{
    const std::size_t end = text.find('\n');
    std::string line = text.substr(0, end);
    text.erase(0, end == std::string::npos ? text.size() : end + 1);
    return line;
}

// The head's lines end as HTTP has them.
std::string reply_on_the_wire(std::string text)
{
    std::string head;
    for (std::string line = next_line(text); !line.empty(); line = next_line(text))
        head += line + "\r\n";
    if (!text.empty() && text.back() == '\n') text.pop_back();
    return head + "Content-Length: " + std::to_string(text.size()) + "\r\nConnection: close\r\n\r\n" + text;
}

Recording recording_in(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    std::string text{std::istreambuf_iterator<char>(file), {}};
    Recording recording;
    recording.state = path.parent_path().filename().string();
    recording.request.line = next_line(text);
    recording.request.body = next_line(text);
    const std::string then = next_line(text);
    recording.next_state = then.starts_with("then ") ? then.substr(5) : "";
    next_line(text);
    recording.reply = reply_on_the_wire(text);
    return recording;
}

std::string without_time(const std::string& body)
{
    static const std::regex time(R"("dt":("[^"]*"|\d+))");
    return std::regex_replace(body, time, R"("dt":0)");
}

}  // namespace

std::vector<Recording> read_recordings(const std::string& folder)
{
    std::vector<Recording> found;
    std::error_code error;
    const std::filesystem::path root{std::u8string(folder.begin(), folder.end())};
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root, error))
        if (entry.path().extension() == ".http") found.push_back(recording_in(entry.path()));
    return found;
}

bool is_same_request(const Request& sent, const Request& recorded)
{
    return sent.line == recorded.line && without_time(sent.body) == without_time(recorded.body);
}
