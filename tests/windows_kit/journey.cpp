#include "windows_kit/journey.h"

#include "platform/windows/windows_path.h"
#include "windows_kit/tester.h"

#include <array>

namespace {

// Windows' file manager, and Wine's.
constexpr std::array kFolderClasses = {L"CabinetWClass", L"ExplorerWClass"};

// Asked of Windows, because the window may be gone before it could answer by itself.
bool is_titled(HWND window)
{
    wchar_t title[256] = {};
    GetWindowTextW(window, title, 256);
    return std::wstring(title).starts_with(L"payname");
}

// By the tester, in the question that Windows asks.
bool is_told_not_to(DWORD error)
{
    return error == ERROR_CANCELLED || error == static_cast<DWORD>(HRESULT_FROM_WIN32(ERROR_CANCELLED));
}

}  // namespace

void Journey::SetUp()
{
    if (!tester_agrees_to_trust_the_authority())
        GTEST_SKIP() << "The tester was not asked, or did not agree, to trust the authority of the kit's site.";
    if (is_told_not_to(site().trust_error()))
        GTEST_SKIP() << "The tester told Windows not to trust the authority of the kit's site.";
    ASSERT_EQ(site().trust_error(), DWORD{ERROR_SUCCESS}) << "Windows does not trust the authority of the kit's site";
    site().be_the_internet();
    site().set_state("bare");
    site().set_makers_page("<p>Current build: 0.001</p>");
    site().forget();
}

std::vector<std::string> Journey::asked_of(const std::string& host)
{
    std::vector<std::string> requests;
    for (const std::string& line : site().heard_at(host))
        if (line != "called" && line != "heard") requests.push_back(line);
    return requests;
}

std::wstring Journey::copy_of_program() const
{
    const std::wstring beside = wide_path(folder.path() + "\\Program");
    CreateDirectoryW(beside.c_str(), nullptr);
    EXPECT_TRUE(CopyFileW((program_folder() + L"\\Brasslet.exe").c_str(), (beside + L"\\Brasslet.exe").c_str(), FALSE));
    return beside;
}

HWND Journey::question_of(const RunningProgram& program)
{
    const HWND box = FindWindowW(L"#32770", nullptr);
    return box != nullptr && GetWindow(box, GW_OWNER) == program.window() && IsWindowVisible(box) ? box : nullptr;
}

void Journey::close_opened_folder() const
{
    const auto opened = [] {
        for (const wchar_t* name : kFolderClasses)
            for (HWND window = FindWindowExW(nullptr, nullptr, name, nullptr); window != nullptr;
                 window = FindWindowExW(nullptr, window, name, nullptr))
                if (is_titled(window)) return window;
        return HWND{};
    };
    EXPECT_TRUE(becomes_true([&] { return opened() != nullptr; }));
    EXPECT_TRUE(becomes_true([&] {
        const HWND window = opened();
        if (window != nullptr) PostMessageW(window, WM_CLOSE, 0, 0);
        return window == nullptr;
    }));
}
