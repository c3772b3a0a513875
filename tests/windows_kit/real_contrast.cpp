#include "windows_kit/real_contrast.h"

#include "kit/windows/any_window.h"
#include "kit/windows/running_program.h"

#include <gtest/gtest.h>

#include <string>

namespace {

constexpr DWORD kPatience = 30'000;  // milliseconds; what takes longer has failed

std::wstring number_of(HANDLE handle)
{
    return std::to_wstring(reinterpret_cast<UINT_PTR>(handle));
}

// This process as a child may wait for it.
HANDLE inherited_self()
{
    HANDLE self = nullptr;
    DuplicateHandle(GetCurrentProcess(), GetCurrentProcess(), GetCurrentProcess(), &self, SYNCHRONIZE, TRUE, 0);
    return self;
}

// Outside of the job that ends all that the checks have started, and without their console.
HANDLE start(std::wstring command)
{
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION started{};
    for (const DWORD outside : {DWORD{CREATE_BREAKAWAY_FROM_JOB}, DWORD{0}}) {
        if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, outside | CREATE_NO_WINDOW, nullptr,
                            nullptr, &startup, &started))
            continue;
        CloseHandle(started.hThread);
        return started.hProcess;
    }
    ADD_FAILURE() << "contrast.exe does not start: error " << GetLastError();
    return nullptr;
}

}  // namespace

bool is_in_high_contrast()
{
    HIGHCONTRASTW setting{};
    setting.cbSize = sizeof setting;
    return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof setting, &setting, 0) &&
           (setting.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

RealContrast::RealContrast()
{
    SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    m_end = CreateEventW(&inherited, TRUE, FALSE, nullptr);
    const HANDLE self = inherited_self();
    m_process = start(L"\"" + test_files_folder() + L"\\contrast.exe\" " + number_of(m_end) + L" " + number_of(self));
    CloseHandle(self);
}

RealContrast::~RealContrast()
{
    SetEvent(m_end);
    EXPECT_EQ(WaitForSingleObject(m_process, kPatience), WAIT_OBJECT_0);
    CloseHandle(m_process);
    CloseHandle(m_end);
}

bool RealContrast::comes_on() const
{
    bool is_on = false;
    becomes_true([&] {
        is_on = is_in_high_contrast();
        return is_on || WaitForSingleObject(m_process, 0) == WAIT_OBJECT_0;
    });
    return is_on;
}
