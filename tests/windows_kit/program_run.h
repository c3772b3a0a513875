// The test programs of the project, run beside check.exe, each with a data folder of its own.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

struct ProgramTest {
    std::string name;
    bool passed = false;
    std::string output;  // what it printed, when it failed
};

struct ProgramRun {
    std::vector<ProgramTest> tests;
    std::vector<std::string> excluded;  // "Suite.Test: reason"
};

// A line of excluded.txt or own_process.txt.
struct NamedTests {
    std::string pattern;
    std::string reason;
};

// The lines of a file beside the test programs.
std::vector<NamedTests> named_tests(const std::wstring& file);

// Whether `name` fits `pattern`, of which "*" is any text; or one of them, between which stands ":".
bool fits(const std::string& name, const std::string& pattern);

std::vector<std::string> tests_of(const std::wstring& program);

// Those that fit `wanted` and that no line of excluded.txt names. One that crashes, or prints nothing for `limit`
// milliseconds, has failed, and a new process goes on with those after it.
ProgramRun run_program(const std::wstring& program, const std::string& wanted, DWORD limit);
