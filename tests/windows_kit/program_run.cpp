#include "windows_kit/program_run.h"

#include "kit/test_folder.h"
#include "kit/windows/running_program.h"
#include "platform/files.h"
#include "platform/text_conversion.h"
#include "platform/windows/windows_path.h"

#include <algorithm>
#include <set>
#include <sstream>

namespace {

// A variable of the environment that has another value as long as this lives.
class OwnVariable {
public:
    OwnVariable(const wchar_t* name, const std::string& value) : m_name(name)
    {
        wchar_t before[MAX_PATH] = {};
        GetEnvironmentVariableW(name, before, MAX_PATH);
        m_before = before;
        SetEnvironmentVariableW(name, wide_path(value).c_str());
    }
    OwnVariable(const OwnVariable&) = delete;
    OwnVariable& operator=(const OwnVariable&) = delete;
    ~OwnVariable() { SetEnvironmentVariableW(m_name, m_before.c_str()); }

private:
    const wchar_t* m_name;
    std::wstring m_before;
};

enum class Ending { by_itself, by_force, not_started };

Ending run(std::wstring command, const std::string& output, DWORD limit)
{
    SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    const HANDLE file = CreateFileW(wide_path(output).c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inherited,
                                    CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = startup.hStdError = file;
    PROCESS_INFORMATION started{};
    if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, CREATE_NO_WINDOW, nullptr, nullptr, &startup,
                        &started)) {
        CloseHandle(file);
        return Ending::not_started;
    }
    constexpr DWORD kBetweenLooks = 200;  // milliseconds
    Ending ending = Ending::by_itself;
    LARGE_INTEGER before{};
    ULONGLONG since = GetTickCount64();
    while (WaitForSingleObject(started.hProcess, kBetweenLooks) == WAIT_TIMEOUT) {
        LARGE_INTEGER size{};
        GetFileSizeEx(file, &size);
        if (size.QuadPart != before.QuadPart) since = GetTickCount64();
        before = size;
        if (GetTickCount64() - since <= limit) continue;
        ending = Ending::by_force;
        TerminateProcess(started.hProcess, 1);
        WaitForSingleObject(started.hProcess, INFINITE);
    }
    CloseHandle(started.hThread);
    CloseHandle(started.hProcess);
    CloseHandle(file);
    return ending;
}

std::wstring start_of_command(const std::wstring& program)
{
    return L"\"" + test_files_folder() + L"\\" + program + L"\" --gtest_color=no ";
}

std::vector<std::string> lines_of(const std::string& path)
{
    std::vector<std::string> lines;
    std::istringstream text(read_file(path).value_or(""));
    for (std::string line; std::getline(text, line); lines.push_back(line))
        if (line.ends_with('\r')) line.pop_back();
    return lines;
}

std::string without_time(const std::string& text)
{
    return text.substr(0, text.find_first_of(", "));
}

// What the program printed, as results; those that it did not come to are not among them.
std::vector<ProgramTest> results_in(const std::vector<std::string>& lines, Ending ending)
{
    constexpr char kBegin[] = "[ RUN      ] ";
    constexpr char kPassed[] = "[       OK ] ";
    constexpr char kFailed[] = "[  FAILED  ] ";
    std::vector<ProgramTest> results;
    std::string current;
    std::string printed;
    for (const std::string& line : lines) {
        const std::size_t failed = line.find(kFailed);
        const std::size_t passed = line.find(kPassed);
        if (line.starts_with(kBegin)) {
            current = line.substr(sizeof kBegin - 1);
            printed.clear();
        } else if (!current.empty() && passed != std::string::npos &&
                   without_time(line.substr(passed + sizeof kPassed - 1)) == current) {
            results.push_back({current, true, ""});
            current.clear();
        } else if (!current.empty() && failed != std::string::npos &&
                   without_time(line.substr(failed + sizeof kFailed - 1)) == current) {
            results.push_back({current, false, printed});
            current.clear();
        } else {
            printed += line + "\n";
        }
    }
    if (!current.empty())
        results.push_back({current, false,
                           printed + (ending == Ending::by_force ? "It did not end." : "The program crashed in it.")});
    return results;
}

void run_in_one_process(const std::wstring& program, std::vector<std::string> names, DWORD limit,
                        ProgramRun& run_of_all)
{
    while (!names.empty()) {
        const TestFolder folder;
        const OwnVariable first(L"TEMP", folder.path());
        const OwnVariable second(L"TMP", folder.path());
        std::string filter = "--gtest_filter=";
        for (const std::string& name : names)
            filter += name + ":";
        folder.write("flags", filter + "\n");
        const std::string output = folder.data() + "\\output";
        const Ending ending =
            run(start_of_command(program) + L"\"--gtest_flagfile=" + wide_path(folder.data()) + L"\\flags\"", output,
                limit);
        const std::vector<ProgramTest> results = results_in(lines_of(output), ending);
        if (results.empty()) {
            run_of_all.tests.push_back({narrow(program), false, "The program ran none of its tests."});
            return;
        }
        for (const ProgramTest& result : results)
            std::erase(names, result.name);
        run_of_all.tests.insert(run_of_all.tests.end(), results.begin(), results.end());
    }
}

}  // namespace

std::vector<NamedTests> named_tests(const std::wstring& file)
{
    std::vector<NamedTests> found;
    for (const std::string& line : lines_of(narrow(test_files_folder() + L"\\" + file))) {
        const std::size_t mark = line.find("  # ");
        if (mark != std::string::npos && !line.starts_with('#'))
            found.push_back({line.substr(0, mark), line.substr(mark + 4)});
    }
    return found;
}

bool fits(const std::string& name, const std::string& pattern)
{
    if (const std::size_t colon = pattern.find(':'); colon != std::string::npos)
        return fits(name, pattern.substr(0, colon)) || fits(name, pattern.substr(colon + 1));
    const std::size_t star = pattern.find('*');
    if (star == std::string::npos) return name == pattern;
    if (!name.starts_with(pattern.substr(0, star))) return false;
    const std::string rest = pattern.substr(star + 1);
    for (std::size_t start = star; start <= name.size(); ++start)
        if (fits(name.substr(start), rest)) return true;
    return false;
}

std::vector<std::string> tests_of(const std::wstring& program)
{
    constexpr DWORD kPatience = 60'000;  // milliseconds
    const TestFolder folder;
    const std::string output = folder.path() + "\\list";
    run(start_of_command(program) + L"--gtest_list_tests", output, kPatience);
    std::vector<std::string> names;
    std::string suite;
    for (const std::string& line : lines_of(output)) {
        const std::string word = line.substr(0, line.find_first_of(" #", line.find_first_not_of(' ')));
        if (line.starts_with("  "))
            names.push_back(suite + word.substr(2));
        else if (word.ends_with('.'))
            suite = word;
    }
    return names;
}

ProgramRun run_program(const std::wstring& program, const std::string& wanted, DWORD limit)
{
    const std::vector<NamedTests> excluded = named_tests(L"excluded.txt");
    const std::vector<NamedTests> alone = named_tests(L"own_process.txt");
    const auto find = [](const std::vector<NamedTests>& lines, const std::string& name) {
        return std::ranges::find_if(lines, [&](const NamedTests& line) { return fits(name, line.pattern); });
    };
    ProgramRun all;
    std::vector<std::string> together;
    for (const std::string& name : tests_of(program)) {
        if (!fits(name, wanted)) continue;
        if (const auto line = find(excluded, name); line != excluded.end())
            all.excluded.push_back(name + ": " + line->reason);
        else if (find(alone, name) != alone.end())
            run_in_one_process(program, {name}, limit, all);
        else
            together.push_back(name);
    }
    run_in_one_process(program, together, limit, all);
    return all;
}
