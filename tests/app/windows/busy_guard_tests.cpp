// A flow's start and its result, as the main window handles them; the flows are the tests' own.
#include "app/windows/busy_guard.h"
#include "app/windows/controls.h"
#include "app/windows/workers.h"
#include "kit/windows/freed_memory.h"
#include "kit/windows/own_window.h"

#include <gtest/gtest.h>

#include <future>

namespace {

const TestFolder* data_folder = nullptr;
int flow_runs = 0;
std::string alias_at_start;
std::string file_at_start;
std::promise<void> permission;

std::string noting_flow(const SiteSettings& settings)
{
    ++flow_runs;
    alias_at_start = settings.alias;
    file_at_start = data_folder->read("payname/ui.json");
    return "It is done.";
}

std::string waiting_flow(const SiteSettings&)
{
    ++flow_runs;
    permission.get_future().wait();
    return "It is done.";
}

class FlowResult : public testing::Test {
protected:
    FlowResult()
    {
        data_folder = &m_folder;
        flow_runs = 0;
        permission = std::promise<void>();
    }

    void type(const wchar_t* name) const { SetWindowTextW(m_window.control(kNameField), name); }
    bool shows(const wchar_t* status) const
    {
        return comes_true([&] { return m_window.text(kStatusLine) == status; });
    }
    void post(std::unique_ptr<std::wstring> result) const
    {
        ASSERT_TRUE(post_text(m_window.window(), MsgFlowResult, std::move(result)));
        answer_messages();
    }
    void post(const wchar_t* result) const { post(std::make_unique<std::wstring>(result)); }

    TestFolder m_folder;
    OwnWindow m_window;
};

constexpr wchar_t kFillers = (kFreedFiller << 8) | kFreedFiller;

struct LargeText {
    std::unique_ptr<std::wstring> text = std::make_unique<std::wstring>(kFreedSize / sizeof(wchar_t) - 1, kFillers);
    std::uintptr_t bytes = reinterpret_cast<std::uintptr_t>(text->data());
};

}  // namespace

TEST_F(FlowResult, TheFlowStartsWithTheLowerCaseNameAfterTheSettingsWereSaved)
{
    type(L" Ann\u00C4 ");
    start_guarded_flow(kPublishButton, noting_flow);
    EXPECT_TRUE(shows(L"It is done."));
    EXPECT_EQ(alias_at_start, "ann\xC3\x84");
    EXPECT_EQ(app_state().settings.alias, "ann\xC3\x84");
    EXPECT_NE(file_at_start.find("\"alias\": \"Ann\xC3\x84\""), std::string::npos);
}

TEST_F(FlowResult, UntilItComesTheButtonWaitsAndASecondStartOnlySaysSo)
{
    type(L"ann");
    start_guarded_flow(kPublishButton, waiting_flow);
    EXPECT_TRUE(app_state().is_busy);
    EXPECT_EQ(app_state().waiting_button, kPublishButton);
    EXPECT_EQ(m_window.text(kPublishButton), L"Wait...");
    EXPECT_TRUE(IsWindowEnabled(m_window.control(kPublishButton)));

    type(L"bob");
    start_guarded_flow(kPublishButton, noting_flow);
    EXPECT_TRUE(shows(L"Already working."));
    EXPECT_EQ(app_state().settings.alias, "ann");
    EXPECT_EQ(m_folder.read("payname/ui.json").find("bob"), std::string::npos);

    permission.set_value();
    EXPECT_TRUE(shows(L"It is done."));
    EXPECT_EQ(flow_runs, 1);
    EXPECT_FALSE(app_state().is_busy);
    EXPECT_EQ(app_state().waiting_button, 0);
    EXPECT_EQ(m_window.text(kPublishButton), L"Publish");
}

TEST_F(FlowResult, AnotherFlowMayRunAfterIt)
{
    for (int runs = 1; runs <= 2; ++runs) {
        start_guarded_flow(kPublishButton, noting_flow);
        EXPECT_TRUE(comes_true([] { return !app_state().is_busy; }));
        EXPECT_EQ(flow_runs, runs);
    }
}

TEST_F(FlowResult, WithAnEmptyTextEmptiesTheStatus)
{
    set_status(L"as it was");
    post(L"");
    EXPECT_EQ(m_window.text(kStatusLine), L"");
}

TEST_F(FlowResult, RefreshesThePreviewAndTheWalletCard)
{
    type(L"ann");
    app_state().settings.site = "https://example.org";
    for (const int id : {kHousePaymail, kPaymentAddress, kKeptNames})
        SetWindowTextW(m_window.control(id), L"of before");
    post(L"It is done.");
    EXPECT_EQ(m_window.text(kNamePreview), L"ann@example.org");
    EXPECT_EQ(m_window.text(kHousePaymail), L"Connect Vaultry");
    EXPECT_EQ(m_window.text(kPaymentAddress), L"Connect Vaultry");
    EXPECT_EQ(m_window.text(kKeptNames), L"");
}

TEST_F(FlowResult, IsFreedOnceShown)
{
    LargeText large;
    ASSERT_TRUE(is_still_there(large.bytes));
    post(std::move(large.text));
    EXPECT_FALSE(is_still_there(large.bytes));
}

TEST_F(FlowResult, ThatComesWithTheEndIsFreedToo)
{
    LargeText large;
    ASSERT_TRUE(post_text(m_window.window(), MsgFlowResult, std::move(large.text)));
    ASSERT_TRUE(is_still_there(large.bytes));
    m_window.destroy();
    EXPECT_FALSE(is_still_there(large.bytes));
}
