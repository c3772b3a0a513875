#include "windows_kit/crash_dump.h"

#include "platform/windows/unique_handle.h"

#include <gtest/gtest.h>

#include <dbghelp.h>

#include <filesystem>
#include <fstream>

namespace {

// The bytes of the dump in which its list of threads begins.
std::string threads_in(std::string& dump)
{
    MINIDUMP_DIRECTORY* directory = nullptr;
    void* stream = nullptr;
    ULONG size = 0;
    EXPECT_TRUE(MiniDumpReadDumpStream(dump.data(), ThreadListStream, &directory, &stream, &size));
    return {static_cast<const char*>(stream), size};
}

// One that ends while the dump is written has no stack any more, and a thread that waits for a site does not end.
bool ends(DWORD thread)
{
    constexpr DWORD kPatience = 5'000;  // milliseconds
    const UniqueHandle handle(OpenThread(SYNCHRONIZE, FALSE, thread));
    return !handle || WaitForSingleObject(handle.get(), kPatience) == WAIT_OBJECT_0;
}

void expect_stacks(std::string& dump)
{
    const std::string bytes = threads_in(dump);
    const auto* list = reinterpret_cast<const MINIDUMP_THREAD_LIST*>(bytes.data());
    ASSERT_GT(list->NumberOfThreads, 0U);
    for (ULONG32 i = 0; i < list->NumberOfThreads; ++i)
        EXPECT_TRUE(list->Threads[i].Stack.Memory.DataSize > 0 || ends(list->Threads[i].ThreadId))
            << "thread " << list->Threads[i].ThreadId;
}

}  // namespace

void write_dump(HANDLE process, const std::wstring& path, int options)
{
    HANDLE file = CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    EXPECT_TRUE(MiniDumpWriteDump(process, GetProcessId(process), file, static_cast<MINIDUMP_TYPE>(options), nullptr,
                                  nullptr, nullptr))
        << "error " << GetLastError();
    CloseHandle(file);
    std::ifstream written(std::filesystem::path(path), std::ios::binary);
    std::string dump{std::istreambuf_iterator<char>(written), {}};
    if ((options & MiniDumpWithFullMemory) == 0) expect_stacks(dump);
}
