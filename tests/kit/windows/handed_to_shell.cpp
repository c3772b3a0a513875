#include "kit/windows/handed_to_shell.h"

#include "kit/windows/any_window.h"
#include "platform/files.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>

// NOLINTNEXTLINE(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)
extern "C" decltype(&ShellExecuteW) __imp_ShellExecuteW;

namespace {

std::string recorded()
{
    const char* world = std::getenv("WORLD_DIR");
    if (world == nullptr) ADD_FAILURE() << "there is no browser outside of the test world";
    return world == nullptr ? "" : read_file(std::string("Z:") + world + "/opened_pages").value_or("");
}

std::vector<ShellStart> starts;

HINSTANCE WINAPI note_start(HWND, LPCWSTR, LPCWSTR program, LPCWSTR parameters, LPCWSTR, INT)
{
    starts.emplace_back(program, parameters != nullptr ? parameters : L"");
    return nullptr;
}

}  // namespace

OpenedPages::OpenedPages() : m_before(recorded()) {}

std::vector<std::string> OpenedPages::addresses() const
{
    std::vector<std::string> lines;
    std::istringstream since(recorded().substr(m_before.size()));
    for (std::string line; std::getline(since, line);)
        lines.push_back(line);
    return lines;
}

bool OpenedPages::come_to(std::size_t count) const
{
    return becomes_true([&] { return addresses().size() >= count; });
}

ShellStarts::ShellStarts() : m_import(__imp_ShellExecuteW, note_start)
{
    starts.clear();
}

std::vector<ShellStart> ShellStarts::noted() const
{
    return starts;
}
