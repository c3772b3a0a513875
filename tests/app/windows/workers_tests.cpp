// The hand-over of a string from a worker to a window, over a real queue, with strings that count how many of them
// live.
#include "app/windows/workers.h"

#include "kit/windows/running_program.h"

#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <thread>
#include <vector>

namespace {

class CountedText {
public:
    CountedText() { ++living; }
    CountedText(const CountedText&) = delete;
    CountedText& operator=(const CountedText&) = delete;
    ~CountedText() { --living; }

    static inline std::atomic<int> living = 0;
};

HWND make_message_window()
{
    return CreateWindowExW(0, L"STATIC", nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
}

std::promise<void> settings_have_changed;

std::string sentence_for(const SiteSettings& settings)
{
    settings_have_changed.get_future().wait();
    return "done for " + settings.alias;
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
        const auto text = receive_text<CountedText>(message.lParam);
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

TEST(PostedText, IsTakenOnce)
{
    HWND window = make_message_window();
    auto text = std::make_unique<CountedText>();
    const auto address = reinterpret_cast<LPARAM>(text.get());
    ASSERT_TRUE(post_text(window, MsgFlowResult, std::move(text)));
    EXPECT_NE(receive_text<CountedText>(address), nullptr);
    EXPECT_EQ(CountedText::living, 0);
    EXPECT_EQ(receive_text<CountedText>(address), nullptr);
    DestroyWindow(window);
}

TEST(PostedText, IsTakenOnlyWhenItWasReallyPosted)
{
    HWND window = make_message_window();
    const auto never_posted = std::make_unique<CountedText>();
    ASSERT_TRUE(post_text(window, MsgFlowResult, std::make_unique<CountedText>()));
    for (const LPARAM foreign : {LPARAM{0}, LPARAM{1}, LPARAM{-1}, reinterpret_cast<LPARAM>(never_posted.get())})
        EXPECT_EQ(receive_text<CountedText>(foreign), nullptr) << foreign;
    EXPECT_EQ(CountedText::living, 2);
    DestroyWindow(window);
}

TEST(PostedText, IsNotTakenAsATextOfAnotherType)
{
    HWND window = make_message_window();
    auto text = std::make_unique<CountedText>();
    const auto address = reinterpret_cast<LPARAM>(text.get());
    ASSERT_TRUE(post_text(window, MsgConnectResult, std::move(text)));
    EXPECT_EQ(receive_text<std::wstring>(address), nullptr);
    EXPECT_NE(receive_text<CountedText>(address), nullptr);
    DestroyWindow(window);
}

TEST(PostedText, EachOfManyThreadsHandsOverItsOwn)
{
    HWND window = make_message_window();
    constexpr int kThreads = 8;
    constexpr int kEach = 200;
    std::vector<std::thread> senders;
    for (int thread = 0; thread < kThreads; ++thread) {
        senders.emplace_back([window] {
            for (int i = 0; i < kEach; ++i)
                EXPECT_TRUE(post_text(window, MsgFlowResult, std::make_unique<CountedText>()));
        });
    }
    for (int taken = 0; taken < kThreads * kEach; ++taken) {
        MSG message{};
        ASSERT_GT(GetMessageW(&message, window, MsgFlowResult, MsgFlowResult), 0);
        EXPECT_NE(receive_text<CountedText>(message.lParam), nullptr);
    }
    for (std::thread& sender : senders)
        sender.join();
    EXPECT_EQ(CountedText::living, 0);
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
    EXPECT_EQ(*receive_text<std::wstring>(message.lParam), L"done for ann");
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
    EXPECT_EQ(MsgGuardResult, 0x8005U);
    EXPECT_EQ(MsgNameKept, 0x8006U);
}
