// The project's test programs, as they run on this system. The windows layer of scripts/test runs them whole as well:
// where check.exe is told --programs=FILTER, only the tests that fit are repeated here.
#include "windows_kit/options.h"
#include "windows_kit/program_run.h"
#include "windows_kit/report.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace {

constexpr DWORD kPatience = 300'000;  // milliseconds without a line

std::string wanted()
{
    return the_options().programs.empty() ? "*" : the_options().programs;
}

void expect_all_pass(const std::wstring& program)
{
    const ProgramRun run = run_program(program, wanted(), kPatience);
    EXPECT_FALSE(run.tests.empty()) << "No test was run.";
    for (const ProgramTest& test : run.tests)
        EXPECT_TRUE(test.passed) << test.name << "\n" << test.output;
    note(std::to_string(std::ranges::count(run.tests, true, &ProgramTest::passed)) + " tests passed, " +
         std::to_string(std::ranges::count(run.tests, false, &ProgramTest::passed)) + " failed, " +
         std::to_string(run.excluded.size()) + " left out:");
    for (const std::string& line : run.excluded)
        note(line);
}

TEST(Programs, TheTestsOfThePortableSourcesPass)
{
    expect_all_pass(L"unit_tests.exe");
}

TEST(Programs, TheTestsOfTheWindowsSourcesPass)
{
    expect_all_pass(L"windows_tests.exe");
}

TEST(Programs, EveryTestThatIsLeftOutIsThere)
{
    std::vector<std::string> names = tests_of(L"unit_tests.exe");
    for (const std::string& name : tests_of(L"windows_tests.exe"))
        names.push_back(name);
    const std::vector<NamedTests> excluded = named_tests(L"excluded.txt");
    EXPECT_FALSE(excluded.empty());
    for (const NamedTests& line : excluded)
        EXPECT_TRUE(std::ranges::any_of(names, [&](const std::string& name) { return fits(name, line.pattern); }))
            << line.pattern;
}

// A program of the kit that does on purpose what a test program should not.
TEST(Programs, AFailingACrashingAndAnEndlessTestAreToldAndThoseAfterThemRun)
{
    constexpr DWORD kShortPatience = 3'000;
    std::vector<std::string> told;
    for (const ProgramTest& test : run_program(L"unruly_tests.exe", "*", kShortPatience).tests)
        told.push_back(test.name + (test.passed ? " passed" : " failed"));
    EXPECT_THAT(told, testing::ElementsAre("Unruly.Fails failed", "Unruly.Crashes failed", "Unruly.NeverEnds failed",
                                           "Unruly.Passes passed"));
}

TEST(Programs, ThatIsNotThereIsAFailure)
{
    const ProgramRun run = run_program(L"missing.exe", "*", kPatience);
    EXPECT_TRUE(std::ranges::none_of(run.tests, &ProgramTest::passed));
}

}  // namespace
