// The hand-over of a text from a worker to a window, over a real queue, with texts that count how many of them live.
#include "app/posted_text.h"

#include "app/messages.h"
#include "app/workers.h"
#include "windows/running_program.h"

#include <gtest/gtest.h>

#include <future>
#include <thread>

namespace {

class CountedText {
public:
    CountedText() { ++living; }
    CountedText(const CountedText&) = delete;
    CountedText& operator=(const CountedText&) = delete;
    ~CountedText() { --living; }

    static inline int living = 0;
};

HWND make_message_window()
{
    return CreateWindowExW(0, L"STATIC", nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
}

std::promise<void> settings_have_changed;

std::wstring sentence_for(const SiteSettings& settings)
{
    settings_have_changed.get_future().wait();
    return L"done for " + std::wstring(settings.alias.begin(), settings.alias.end());
}

}  // namespace

TEST(PostedText, IsFreedOnceByTheReceiver)
{
    HWND window = make_message_window();
    ASSERT_TRUE(post_text(window, MsgFlowResult, std::make_unique<CountedText>()));
    EXPECT_EQ(CountedText::living, 1);
    MSG message{};
    ASSERT_GT(GetMessageW(&message, window, MsgFlowResult, MsgFlowResult), 0);
    EXPECT_EQ(message.wParam, 0U);
    {
        const auto text = take_text<CountedText>(message.lParam);
        EXPECT_NE(text, nullptr);
        EXPECT_EQ(CountedText::living, 1);
    }
    EXPECT_EQ(CountedText::living, 0);
    DestroyWindow(window);
}

TEST(PostedText, IsFreedOnceByTheSenderWhenTheWindowIsGone)
{
    HWND window = make_message_window();
    DestroyWindow(window);
    bool is_posted = true;
    std::thread([&] { is_posted = post_text(window, MsgFlowResult, std::make_unique<CountedText>()); }).join();
    EXPECT_FALSE(is_posted);
    EXPECT_EQ(CountedText::living, 0);
}

TEST(PostedText, MayBeAbsent)
{
    HWND window = make_message_window();
    ASSERT_TRUE(post_text(window, MsgFlowResult, std::unique_ptr<CountedText>()));
    MSG message{};
    ASSERT_GT(GetMessageW(&message, window, MsgFlowResult, MsgFlowResult), 0);
    EXPECT_EQ(take_text<CountedText>(message.lParam), nullptr);
    DestroyWindow(window);
}

TEST(StartFlow, PostsExactlyOneResultOfTheSettingsAsTheyWereAtTheStart)
{
    HWND window = make_message_window();
    SiteSettings settings;
    settings.alias = "ann";
    start_flow(window, sentence_for, settings);
    settings.alias = "bob";
    settings_have_changed.set_value();

    MSG message{};
    ASSERT_GT(GetMessageW(&message, window, 0, 0), 0);
    EXPECT_EQ(message.message, MsgFlowResult);
    EXPECT_EQ(*take_text<std::wstring>(message.lParam), L"done for ann");
    EXPECT_TRUE(becomes_true([] { return !worker_is_running(); }));
    EXPECT_FALSE(PeekMessageW(&message, window, 0, 0, PM_REMOVE));
    DestroyWindow(window);
}

TEST(Messages, HaveTheirNumbers)
{
    EXPECT_EQ(MsgConnectResult, 0x8001U);
    EXPECT_EQ(MsgFlowResult, 0x8002U);
    EXPECT_EQ(MsgUpdateResult, 0x8003U);
    EXPECT_EQ(MsgShowPackage, 0x8004U);
}
