#include "kit/child_process.h"

#include "kit/test_folder.h"

#include <stdexcept>

#ifdef _WIN32

#include <windows.h>
#include "platform/windows/windows_path.h"

namespace {

HANDLE handle_of(std::intptr_t value)
{
    return reinterpret_cast<HANDLE>(value);
}

void close_end(std::intptr_t& end)
{
    if (end != 0) CloseHandle(handle_of(end));
    end = 0;
}

// One end is the child's to inherit, the other ours alone.
void make_pipe(HANDLE& read_end, HANDLE& write_end, HANDLE& ours)
{
    SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    if (CreatePipe(&read_end, &write_end, &inherited, 0) == 0) throw std::runtime_error("no pipe");
    SetHandleInformation(ours, HANDLE_FLAG_INHERIT, 0);
}

}  // namespace

ChildProcess::ChildProcess(const std::vector<std::string>& arguments)
{
    std::string command = "\"" + test_program_folder() + "\\second_process.exe\"";
    for (const std::string& argument : arguments)
        command += " \"" + argument + "\"";

    HANDLE child_input = nullptr;
    HANDLE our_input = nullptr;
    HANDLE our_output = nullptr;
    HANDLE child_output = nullptr;
    make_pipe(child_input, our_input, our_input);
    make_pipe(our_output, child_output, our_output);

    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = child_input;
    startup.hStdOutput = child_output;
    startup.hStdError = GetStdHandle(STD_ERROR_HANDLE);
    PROCESS_INFORMATION process{};
    std::wstring wide_command = wide_path(command);
    if (CreateProcessW(nullptr, wide_command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup, &process) ==
        0)
        throw std::runtime_error("cannot start " + command);
    CloseHandle(process.hThread);
    CloseHandle(child_input);
    CloseHandle(child_output);
    m_process = reinterpret_cast<std::intptr_t>(process.hProcess);
    m_input = reinterpret_cast<std::intptr_t>(our_input);
    m_output = reinterpret_cast<std::intptr_t>(our_output);
}

std::string ChildProcess::read_line()
{
    std::string line;
    char c = 0;
    DWORD read = 0;
    while (ReadFile(handle_of(m_output), &c, 1, &read, nullptr) != 0 && read == 1 && c != '\n')
        if (c != '\r') line += c;
    return line;
}

void ChildProcess::close_input()
{
    close_end(m_input);
}

void ChildProcess::kill()
{
    TerminateProcess(handle_of(m_process), 9);
    wait();
}

int ChildProcess::wait()
{
    DWORD code = 0;
    WaitForSingleObject(handle_of(m_process), INFINITE);
    GetExitCodeProcess(handle_of(m_process), &code);
    return static_cast<int>(code);
}

ChildProcess::~ChildProcess()
{
    kill();
    close_end(m_input);
    close_end(m_output);
    close_end(m_process);
}

#else

#include <array>
#include <csignal>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

void close_end(std::intptr_t& end)
{
    if (end != 0) close(static_cast<int>(end));
    end = 0;
}

std::array<int, 2> make_pipe()
{
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    return ends;
}

}  // namespace

ChildProcess::ChildProcess(const std::vector<std::string>& arguments)
{
    std::string program = test_program_folder() + "/second_process";
    std::vector<std::string> texts = arguments;
    std::vector<char*> argv{program.data()};
    for (std::string& text : texts)
        argv.push_back(text.data());
    argv.push_back(nullptr);

    const auto input = make_pipe();
    const auto output = make_pipe();
    // Not fork(): it copies the tables of all the memory that a sanitizer has reserved.
    pid_t child = 0;
    posix_spawn_file_actions_t redirections;
    posix_spawn_file_actions_init(&redirections);
    posix_spawn_file_actions_adddup2(&redirections, input[0], STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&redirections, output[1], STDOUT_FILENO);
    const int error = posix_spawn(&child, program.c_str(), &redirections, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&redirections);
    if (error != 0) throw std::runtime_error("cannot start " + program);
    close(input[0]);
    close(output[1]);
    m_process = child;
    m_input = input[1];
    m_output = output[0];
}

std::string ChildProcess::read_line()
{
    std::string line;
    char c = 0;
    while (read(static_cast<int>(m_output), &c, 1) == 1 && c != '\n')
        line += c;
    return line;
}

void ChildProcess::close_input()
{
    close_end(m_input);
}

void ChildProcess::kill()
{
    if (m_process != 0) ::kill(static_cast<pid_t>(m_process), SIGKILL);
    wait();
}

int ChildProcess::wait()
{
    if (m_process == 0) return -1;
    int status = 0;
    waitpid(static_cast<pid_t>(m_process), &status, 0);
    m_process = 0;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

ChildProcess::~ChildProcess()
{
    kill();
    close_end(m_input);
    close_end(m_output);
}

#endif
