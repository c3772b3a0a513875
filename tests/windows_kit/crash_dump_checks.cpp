// What a dump of the program would give away, taken as Windows Error Reporting takes it: all threads with their stacks,
// the writable data of all modules, the blocks that describe process and threads, and no heap.
#include "kit/test_folder.h"
#include "kit/windows/running_program.h"
#include "kit/windows/stalled_site.h"
#include "kit/windows/users_files.h"
#include "platform/text_conversion.h"
#include "platform/windows/windows_version.h"
#include "windows_kit/crash_dump.h"
#include "windows_kit/expected_controls.h"
#include "windows_kit/machine.h"
#include "windows_kit/memory_search.h"

#include <gtest/gtest.h>

#include <dbghelp.h>

#include <algorithm>

namespace {

using Names = std::set<std::string>;

// The options of WerDumpTypeMiniDump, as the documentation of WER_DUMP_TYPE lists them.
constexpr int kAsReported = MiniDumpWithDataSegs | MiniDumpWithUnloadedModules | MiniDumpWithProcessThreadData;

constexpr char kPassword[] = "qjzkwxvpbyfgmucdlsrhtnoi";

// WER_FAULT_REPORTING_FLAG_NOHEAP of <werapi.h>, which the toolchain's compiler cannot read.
constexpr DWORD kNoHeap = 1;

// A user with a wallet and a saved login, who is about to publish.
class CrashDump : public testing::Test {
protected:
    CrashDump()
    {
        write_one_wallet(folder, published_wallet());
        save({"https://stalled.example", "owner", kPassword}, "alice");
        secrets = secrets_of_published_wallet();
        std::ranges::move(secrets_of_password(kPassword), std::back_inserter(secrets));
    }

    Names found_in_dump(const RunningProgram& program, int options) const
    {
        const std::wstring path = widen(folder.path() + "\\Brasslet.dmp");
        write_dump(program.process(), path, options);
        return found_in_file(path, secrets);
    }
    Names found_in_data_of_modules(const RunningProgram& program) const
    {
        return found_in_memory(program.process(), secrets,
                               [](const MEMORY_BASIC_INFORMATION& region) { return region.Type == MEM_IMAGE; });
    }

    const TestFolder folder;
    std::vector<Secret> secrets;
};

}  // namespace

TEST_F(CrashDump, OfTheWholeMemoryWouldHoldTheConnectedWallet)
{
    const RunningProgram program;
    EXPECT_EQ(found_in_dump(program, MiniDumpWithFullMemory), secrets_of_a_connected_wallet());
}

TEST_F(CrashDump, AsWindowsReportsItHoldsNoSecret)
{
    const RunningProgram program;
    EXPECT_EQ(found_in_dump(program, kAsReported), Names());
}

TEST_F(CrashDump, InTheMiddleOfARequestHoldsNoSecret)
{
    StalledSite site("stalled.example");
    const RunningProgram program;
    program.press(kPublishButton);
    ASSERT_TRUE(site.is_asked());
    EXPECT_EQ(found_in_dump(program, kAsReported), Names());
}

// Not every system's dumps have these data, whatever they are asked for.
TEST_F(CrashDump, HoldsNoSecretInTheDataOfAnyModule)
{
    const RunningProgram program;
    secrets.push_back({"what the program's own file holds", {"This program cannot be run in DOS mode"}});
    EXPECT_EQ(found_in_data_of_modules(program), Names{"what the program's own file holds"});
}

TEST_F(CrashDump, IsToBeTakenWithoutTheHeap)
{
    using GetFlags = HRESULT(WINAPI*)(HANDLE, DWORD*);
    const auto get_flags = system_function<GetFlags>(L"kernel32.dll", "WerGetFlags");
    const RunningProgram program;
    DWORD flags = 0;
    const HRESULT answer = get_flags != nullptr ? get_flags(program.process(), &flags) : E_NOTIMPL;
    if (is_wine() && answer == E_NOTIMPL) GTEST_SKIP() << "Wine takes no crash reports, and keeps no wishes for them.";
    ASSERT_EQ(answer, S_OK);
    EXPECT_EQ(flags & kNoHeap, kNoHeap);
}
