// check.exe: started by hand it starts itself a second time, inside a folder of its own, where it runs the checks. They
// are GoogleTest's, each started afresh.
#include "kit/test_program/afresh.h"
#include "kit/windows/running_program.h"
#include "platform/environment.h"
#include "platform/text_conversion.h"
#include "windows_kit/guarded_run.h"
#include "windows_kit/kit_site.h"
#include "windows_kit/machine.h"
#include "windows_kit/options.h"
#include "windows_kit/report.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <memory>

namespace {

constexpr int kBadWord = 2;

class StartingAfresh : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo&) override { start_afresh(); }
};

void note_facts(const Options& options)
{
    const char* const yes_or_no[] = {"no", "yes"};
    the_report().facts = {
        {"Date", local_time()},
        {"System", system_name()},
        {"SHA-256 of Brasslet.exe", sha256_of_file(narrow(program_folder()) + "\\Brasslet.exe")},
        {"May trust the kit's authority", yes_or_no[options.agrees_to_authority ? 1 : 0]},
        {"May switch high contrast", yes_or_no[options.agrees_to_high_contrast ? 1 : 0]},
    };
}

bool is_asked_for_list()
{
    return testing::GTEST_FLAG(list_tests);
}

int run_checks(const Options& options)
{
    if (!keeps_to_own_folder(options)) return 1;
    note_facts(options);
    auto& listeners = testing::UnitTest::GetInstance()->listeners();
    if (!is_asked_for_list()) delete listeners.Release(listeners.default_result_printer());
    listeners.Append(std::make_unique<StartingAfresh>().release());
    listeners.Append(make_reporter().release());
    const int status = RUN_ALL_TESTS();
    end_the_kit_site();
    if (is_asked_for_list()) return status;
    const bool is_written = write_report(executable_folder());
    return status == 0 && is_written && the_report().count(CheckResult::passed) > 0 ? 0 : 1;
}

}  // namespace

int main(int count, char** arguments)
{
    SetConsoleOutputCP(CP_UTF8);
    std::string unknown;
    const auto options = read_options({arguments + 1, arguments + count}, unknown);
    if (!options) {
        std::printf(
            "check.exe does not know %s. It knows --yes, --no-questions, --ask, --as-windows, --programs=FILTER and "
            "GoogleTest's options.\n",
            unknown.c_str());
        return kBadWord;
    }
    the_options() = *options;
    if (options->inside.empty()) return run_guarded(*options);
    testing::InitGoogleMock(&count, arguments);
    return run_checks(*options);
}
