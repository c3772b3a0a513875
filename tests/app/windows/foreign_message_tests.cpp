// Messages that other programs of the desktop post with numbers of their own: the main window ignores them.
#include "app/windows/busy_guard.h"
#include "app/windows/controls.h"
#include "app/windows/workers.h"
#include "kit/windows/own_window.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

class ForeignMessage : public testing::TestWithParam<UINT> {
protected:
    // As when a flow or the connect runs.
    ForeignMessage()
    {
        set_busy(kPublishButton);
        set_status(L"as it was");
    }

    void post(LPARAM lparam) const
    {
        ASSERT_TRUE(PostMessageW(m_window.window(), GetParam(), 0, lparam));
        answer_messages();
    }
    void expect_nothing_happened() const
    {
        EXPECT_TRUE(app_state().is_busy);
        EXPECT_EQ(m_window.text(kPublishButton), L"Wait...");
        EXPECT_FALSE(IsWindowEnabled(m_window.control(kConnectButton)));
        EXPECT_EQ(m_window.text(kStatusLine), L"as it was");
    }

    TestFolder m_folder;
    OwnWindow m_window;
};

// The address of something that looks like a string object.
template <typename Text>
LPARAM address_of(Text& text)
{
    return reinterpret_cast<LPARAM>(&text);
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(Results, ForeignMessage, testing::Values(MsgConnectResult, MsgFlowResult),
                         [](const auto& message) { return message.param == MsgFlowResult ? "Flow" : "Connect"; });

TEST_P(ForeignMessage, WithAnyNumberChangesNothing)
{
    for (const LPARAM number : {LPARAM{0}, LPARAM{1}, LPARAM{8}, LPARAM{-1}, LPARAM{0x7FFE0000}, LPARAM{0x10000}}) {
        post(number);
        expect_nothing_happened();
    }
}

TEST_P(ForeignMessage, WithTheAddressOfATextThatNobodyPostedChangesNothingAndFreesNothing)
{
    std::wstring sentence = L"Send your money elsewhere, and do it now, please.";
    std::string result = "success, or so it says at some length here";
    post(address_of(sentence));
    post(address_of(result));
    expect_nothing_happened();
    EXPECT_EQ(sentence, L"Send your money elsewhere, and do it now, please.");
    EXPECT_EQ(result, "success, or so it says at some length here");
}

TEST_P(ForeignMessage, WithARealTextForTheSecondTimeChangesNothing)
{
    auto sentence = std::make_unique<std::wstring>(L"It is done.");
    auto result = std::make_unique<std::string>("It failed.");
    const LPARAM address = GetParam() == MsgFlowResult ? address_of(*sentence) : address_of(*result);
    if (GetParam() == MsgFlowResult)
        ASSERT_TRUE(post_text(m_window.window(), MsgFlowResult, std::move(sentence)));
    else
        ASSERT_TRUE(post_text(m_window.window(), MsgConnectResult, std::move(result)));
    answer_messages();
    ASSERT_FALSE(app_state().is_busy);

    set_busy(kPublishButton);
    set_status(L"as it was");
    post(address);
    expect_nothing_happened();
}

TEST_P(ForeignMessage, WithTheTextOfTheOtherMessageLeavesItToThatOne)
{
    auto sentence = std::make_unique<std::wstring>(L"It is done.");
    auto result = std::make_unique<std::string>("It failed.");
    const bool is_flow = GetParam() == MsgFlowResult;
    const LPARAM other = is_flow ? address_of(*result) : address_of(*sentence);
    PostMessageW(m_window.window(), GetParam(), 0, other);
    if (is_flow)
        ASSERT_TRUE(post_text(m_window.window(), MsgConnectResult, std::move(result)));
    else
        ASSERT_TRUE(post_text(m_window.window(), MsgFlowResult, std::move(sentence)));
    answer_messages();
    EXPECT_EQ(m_window.text(kStatusLine), is_flow ? L"It failed." : L"It is done.");
    EXPECT_FALSE(app_state().is_busy);
}

TEST_P(ForeignMessage, ThatWaitsWhenTheWindowEndsIsNothingEither)
{
    for (const LPARAM number : {LPARAM{0}, LPARAM{1}, LPARAM{-1}})
        ASSERT_TRUE(PostMessageW(m_window.window(), GetParam(), 0, number));
    m_window.destroy();
}
