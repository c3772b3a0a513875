// What the main window does with the result of a connect, in a window of this process, which can be handed any text.
#include "app/windows/main_window.h"
#include "app/windows/workers.h"
#include "kit/test_folder.h"
#include "kit/windows/own_window.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>

namespace {

class ConnectResult : public testing::Test {
protected:
    ConnectResult()
    {
        register_main_window_class(GetModuleHandleW(nullptr));
        m_window = create_main_window(GetModuleHandleW(nullptr));
    }
    ~ConnectResult() override
    {
        if (IsWindow(m_window)) DestroyWindow(m_window);
    }

    std::wstring status_after(const char* result) const
    {
        EXPECT_TRUE(post_text(m_window, MsgConnectResult, std::make_unique<std::string>(result)));
        answer_messages();
        wchar_t status[128] = {};
        GetDlgItemTextW(m_window, 1008, status, 128);
        return status;
    }

    TestFolder m_folder;
    HWND m_window = nullptr;
};

// A text whose characters can be looked for after it was freed: the program's operator delete zeroes them.
constexpr std::size_t kSize = 4000;

std::unique_ptr<std::string> marked_text(std::uintptr_t& characters)
{
    auto text = std::make_unique<std::string>(kSize, '\xA7');
    characters = reinterpret_cast<std::uintptr_t>(text->data());
    return text;
}

bool is_freed(std::uintptr_t characters)
{
    unsigned char bytes[kSize] = {};
    SIZE_T read = 0;
    ReadProcessMemory(GetCurrentProcess(), reinterpret_cast<const void*>(characters), bytes, kSize, &read);
    return std::count(bytes + 64, bytes + kSize, 0xA7) == 0;
}

}  // namespace

TEST_F(ConnectResult, ThatBeginsWithSuccessIsOneWhateverFollows)
{
    EXPECT_EQ(status_after("success"), L"Connected.");
    EXPECT_EQ(status_after("x"), L"x");
    EXPECT_EQ(status_after("successful, more or less"), L"Connected.");
}

TEST_F(ConnectResult, ThatBeginsOtherwiseIsShownAsItIs)
{
    EXPECT_EQ(status_after("Success"), L"Success");
    EXPECT_EQ(status_after(" success"), L" success");
    EXPECT_EQ(status_after("error: no success"), L"error: no success");
    EXPECT_EQ(status_after("%s %n Zo\xC3\xAB"), L"%s %n Zo\x00EB");
}

TEST_F(ConnectResult, ThatIsEmptyIsToldInASentence)
{
    EXPECT_EQ(status_after("success"), L"Connected.");
    EXPECT_EQ(status_after(""), L"Vaultry did not connect.");
}

TEST_F(ConnectResult, IsFreedByTheWindow)
{
    std::uintptr_t characters = 0;
    ASSERT_TRUE(post_text(m_window, MsgConnectResult, marked_text(characters)));
    ASSERT_FALSE(is_freed(characters));
    answer_messages();
    EXPECT_TRUE(is_freed(characters));
}

TEST_F(ConnectResult, ThatComesTooLateIsFreedWithTheWindow)
{
    std::uintptr_t characters = 0;
    ASSERT_TRUE(post_text(m_window, MsgConnectResult, marked_text(characters)));
    ASSERT_FALSE(is_freed(characters));
    DestroyWindow(m_window);
    EXPECT_TRUE(is_freed(characters));
}
