// The password's edit control by itself, and the memory of the process right after it was wiped: nothing has had the
// time to take the place of what the control left behind.
#include "settings/windows/settings_window_password.h"

#include <gtest/gtest.h>

#include <string_view>
#include <utility>
#include <vector>

namespace {

constexpr wchar_t kPassword[] = L"qjzkwxvpbyfgmucdlsrhtnoi";
constexpr wchar_t kOther[] = L"0123456789";
constexpr std::size_t kPiece = 8;  // letters

std::size_t count_in(std::wstring_view memory, std::wstring_view sought)
{
    std::size_t count = 0;
    for (std::size_t at = memory.find(sought); at != std::wstring_view::npos; at = memory.find(sought, at + 1))
        ++count;
    return count;
}

// How often a piece of the password stands as wide text in the memory that this process can write to. Nothing is
// copied: a copy would be found as well.
std::size_t pieces_in_memory()
{
    std::size_t count = 0;
    MEMORY_BASIC_INFORMATION region{};
    for (const char* at = nullptr; VirtualQuery(at, &region, sizeof region) != 0;
         at = static_cast<const char*>(region.BaseAddress) + region.RegionSize) {
        if (region.State != MEM_COMMIT || region.Protect != PAGE_READWRITE) continue;
        const std::wstring_view memory(static_cast<const wchar_t*>(region.BaseAddress),
                                       region.RegionSize / sizeof(wchar_t));
        for (std::size_t start = 0; start + kPiece <= std::size(kPassword) - 1; start += kPiece)
            count += count_in(memory, {kPassword + start, kPiece});
    }
    return count;
}

// In the heap of the controls, many free places of every size, each between two that are taken: a small block that is
// freed stays as it is until another of its size is wanted, and what grows has to move.
class ScatteredHeap {
public:
    ScatteredHeap()
    {
        for (std::size_t size = kStep; size < kLargest; size += kStep)
            for (int i = 0; i < kOfEach; ++i)
                m_blocks.push_back(HeapAlloc(GetProcessHeap(), 0, size));
        for (std::size_t i = 0; i < m_blocks.size(); i += 2)
            HeapFree(GetProcessHeap(), 0, std::exchange(m_blocks[i], nullptr));
    }
    ScatteredHeap(const ScatteredHeap&) = delete;
    ScatteredHeap& operator=(const ScatteredHeap&) = delete;
    ~ScatteredHeap()
    {
        for (void* block : m_blocks)
            HeapFree(GetProcessHeap(), 0, block);
    }

private:
    static constexpr std::size_t kStep = 8;  // bytes
    static constexpr std::size_t kLargest = 1024;
    static constexpr int kOfEach = 20;

    std::vector<void*> m_blocks;
};

class PasswordField : public testing::Test {
protected:
    PasswordField() { prepare_password_field(field, false); }
    PasswordField(const PasswordField&) = delete;
    PasswordField& operator=(const PasswordField&) = delete;
    ~PasswordField() override { DestroyWindow(field); }

    void type(const wchar_t* text) const
    {
        for (const wchar_t* letter = text; *letter != L'\0'; ++letter)
            SendMessageW(field, WM_CHAR, *letter, 0);
    }
    void select_all() const { SendMessageW(field, EM_SETSEL, 0, -1); }

    const ScatteredHeap scattered;
    const HWND field =
        CreateWindowExW(0, L"EDIT", L"", WS_POPUP | ES_AUTOHSCROLL, 0, 0, 300, 30, nullptr, nullptr, nullptr, nullptr);
};

}  // namespace

TEST_F(PasswordField, LeavesNothingOfATypedPassword)
{
    type(kPassword);
    ASSERT_GT(pieces_in_memory(), 0U);
    wipe_password_field(field);
    EXPECT_EQ(pieces_in_memory(), 0U);
    EXPECT_EQ(GetWindowTextLengthW(field), 0);
}

TEST_F(PasswordField, LeavesNothingOfAPasswordThatGrows)
{
    for (int i = 0; i < 10; ++i)
        type(kPassword);
    wipe_password_field(field);
    EXPECT_EQ(pieces_in_memory(), 0U);
}

TEST_F(PasswordField, LeavesNothingOfAPasswordThatAnotherReplaced)
{
    type(kPassword);
    select_all();
    type(kOther);
    EXPECT_STREQ(password_in(field).text().c_str(), "0123456789");
    wipe_password_field(field);
    EXPECT_EQ(pieces_in_memory(), 0U);
}

TEST_F(PasswordField, LeavesNothingToUndo)
{
    type(kPassword);
    wipe_password_field(field);
    SendMessageW(field, EM_UNDO, 0, 0);
    EXPECT_TRUE(password_in(field).empty());
}

TEST_F(PasswordField, IsWipedAlsoOfLettersThatCountAsTwo)
{
    type(L"\xD83D\xDD11qjzkwxvp\xD83D\xDD11");
    wipe_password_field(field);
    EXPECT_EQ(pieces_in_memory(), 0U);
    EXPECT_EQ(GetWindowTextLengthW(field), 0);
}
