#include "windows_kit/kit_site.h"

#include "kit/windows/running_program.h"
#include "platform/text_conversion.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>

namespace {

constexpr DWORD kPatience = 60'000;  // milliseconds: Windows asks the user before the authority goes

std::unique_ptr<KitSite> g_site;

std::wstring site_folder()
{
    return test_files_folder() + L"\\site";
}

void make_pipe(HANDLE& read_end, HANDLE& write_end, HANDLE& ours)
{
    SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    CreatePipe(&read_end, &write_end, &inherited, 0);
    SetHandleInformation(ours, HANDLE_FLAG_INHERIT, 0);
}

// It outlives this process for as long as it takes to take the authority away: outside of the job that ends all that
// the checks have started, and without their console.
HANDLE start(const std::wstring& parameters, HANDLE input, HANDLE output)
{
    std::wstring command = L"\"" + site_folder() + L"\\kit_site.exe\" " + parameters;
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = input;
    startup.hStdOutput = output;
    PROCESS_INFORMATION started{};
    for (const DWORD outside : {DWORD{CREATE_BREAKAWAY_FROM_JOB}, DWORD{0}}) {
        if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, outside | CREATE_NO_WINDOW, nullptr,
                            nullptr, &startup, &started))
            continue;
        CloseHandle(started.hThread);
        return started.hProcess;
    }
    return nullptr;
}

std::string line_from(HANDLE pipe)
{
    std::string line;
    char c = 0;
    DWORD count = 0;
    while (ReadFile(pipe, &c, 1, &count, nullptr) && count == 1 && c != '\n')
        if (c != '\r') line += c;
    return line;
}

}  // namespace

KitSite::KitSite()
{
    HANDLE input = nullptr;
    HANDLE output = nullptr;
    make_pipe(input, m_orders, m_orders);
    make_pipe(m_answers, output, m_answers);
    m_process = start(L"\"" + site_folder() + L"\\recordings\"", input, output);
    CloseHandle(input);
    CloseHandle(output);
    const std::string first = read_line();
    if (!first.starts_with("port ")) ADD_FAILURE() << "the site of the kit does not start";
    m_port = first.substr(first.find(' ') + 1);
    const std::vector<std::string> answer = order("trust");
    if (!answer.empty()) m_trust_error = std::strtoul(answer.front().c_str(), nullptr, 10);
}

KitSite::~KitSite()
{
    CloseHandle(m_orders);
    WaitForSingleObject(m_process, kPatience);
    CloseHandle(m_answers);
    CloseHandle(m_process);
}

void KitSite::be_the_internet() const
{
    SetEnvironmentVariableW(L"https_proxy", widen("http://127.0.0.1:" + m_port).c_str());
    SetEnvironmentVariableW(L"no_proxy", nullptr);
}

void KitSite::set_state(const std::string& state) const
{
    order("state " + state);
}

void KitSite::set_makers_page(const std::string& text) const
{
    order("page " + text);
}

std::vector<std::string> KitSite::heard() const
{
    return order("heard");
}

std::vector<std::string> KitSite::heard_at(const std::string& host) const
{
    std::vector<std::string> found;
    for (const std::string& line : heard())
        if (line.starts_with(host + " ")) found.push_back(line.substr(host.size() + 1));
    return found;
}

void KitSite::forget() const
{
    order("forget");
}

std::vector<std::string> KitSite::order(const std::string& line) const
{
    const std::string text = line + "\n";
    DWORD count = 0;
    WriteFile(m_orders, text.data(), static_cast<DWORD>(text.size()), &count, nullptr);
    std::vector<std::string> answer;
    for (std::string said = read_line(); said != "." && !said.empty(); said = read_line())
        answer.push_back(said);
    return answer;
}

std::string KitSite::read_line() const
{
    return line_from(m_answers);
}

KitSite& the_kit_site()
{
    if (!g_site) g_site = std::make_unique<KitSite>();
    return *g_site;
}

void end_the_kit_site()
{
    g_site.reset();
}

std::string clean_up_authorities()
{
    HANDLE output = nullptr;
    HANDLE answers = nullptr;
    make_pipe(answers, output, answers);
    const HANDLE process = start(L"--clean", nullptr, output);
    CloseHandle(output);
    std::string count = line_from(answers);
    CloseHandle(answers);
    if (process != nullptr) CloseHandle(process);
    return count;
}
