// How the real program starts, and what it leaves in the shared data directory.
#include "kit/test_folder.h"
#include "kit/windows/running_program.h"
#include "platform/environment.h"
#include "platform/files.h"
#include "platform/text_conversion.h"
#include "platform/windows/windows_path.h"
#include "text/json.h"
#include "text/path.h"
#include "wallet_bridge/binding.h"

#include <gtest/gtest.h>

#include <filesystem>

TEST(Start, BindsTheOnlyWalletForTheFolderOfTheExecutable)
{
    const TestFolder folder;
    folder.write("wallets.json", R"({"wallets":[{"id":"1"}]})");
    EXPECT_EQ(RunningProgram().close(), 0U);

    std::vector<std::wstring> names;
    for (const auto& entry : std::filesystem::directory_iterator(wide_path(folder.data() + "/binds")))
        names.push_back(entry.path().filename().wstring());
    ASSERT_EQ(names.size(), 1U);
    const auto record = parse_json(folder.read("binds/" + narrow(names[0])));
    EXPECT_EQ(record.size(), 3U);
    EXPECT_EQ(text_member(record, "app"), "Brasslet");
    EXPECT_EQ(text_member(record, "wallet_id"), "1");
    const std::string instance = text_member(record, "instance");
    EXPECT_TRUE(instance.ends_with("\\src")) << instance;
    EXPECT_EQ(file_status(instance + "\\Brasslet.exe"), FileStatus::exists) << instance;
    EXPECT_EQ(narrow(names[0]), bind_key(instance) + ".json");
}

TEST(Start, MakesTheProgramsFolderTheCurrentOne)
{
    const TestFolder folder;
    const std::wstring own = widen(executable_folder());
    EXPECT_EQ(RunningProgram().current_folder(), std::wstring(without_last_element(own)) + L"\\src\\");
}

TEST(Start, ShowsTheWindowAsItWasAskedTo)
{
    const TestFolder folder;
    EXPECT_FALSE(IsIconic(RunningProgram().window()));
    EXPECT_TRUE(IsIconic(RunningProgram(program_folder(), SW_SHOWMINNOACTIVE).window()));
}

TEST(Start, IsAwareOfEveryMonitorsOwnDpi)
{
    const TestFolder folder;
    const RunningProgram program;
    // The manifest says which of the two forms; the test of the release reads it there.
    EXPECT_EQ(GetAwarenessFromDpiAwarenessContext(GetWindowDpiAwarenessContext(program.window())),
              DPI_AWARENESS_PER_MONITOR_AWARE);
}
