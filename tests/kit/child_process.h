// The program second_process, run beside a test: it is told what to do by its arguments, answers in lines, and ends
// when its standard input is closed, at the latest.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

class ChildProcess {
public:
    explicit ChildProcess(const std::vector<std::string>& arguments);
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;
    ~ChildProcess();  // killed when it still runs

    std::string read_line();  // waits for it; empty when the process ended without a further line
    void close_input();
    void kill();  // at once, whatever it does
    int wait();   // its exit code

private:
    std::intptr_t m_process = 0;
    std::intptr_t m_input = 0;   // our end of its standard input
    std::intptr_t m_output = 0;  // our end of its standard output
};
