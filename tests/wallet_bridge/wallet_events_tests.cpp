#include "wallet_bridge/wallet_events.h"

#include <gtest/gtest.h>

namespace {

std::string line;

void remember_line(const std::string& text)
{
    line = text;
}

}  // namespace

TEST(WalletEvents, ALineHoldsKindAndThePresentDetails)
{
    set_event_sink(remember_line);
    emit_event("status");
    EXPECT_EQ(line, "[QX-VAULTRY]\x1f"
                    "status");
    emit_event("paymail", "ann@corvane.example");
    EXPECT_EQ(line, "[QX-VAULTRY]\x1f"
                    "paymail\x1f"
                    "ann@corvane.example");
    emit_event("error", "one", "two");
    EXPECT_EQ(line, "[QX-VAULTRY]\x1f"
                    "error\x1fone\x1ftwo");
}

TEST(WalletEvents, LogTextArrivesAsItIs)
{
    set_log_sink(remember_line);
    emit_log("Waiting...\n");
    EXPECT_EQ(line, "Waiting...\n");
}

TEST(WalletEvents, WithoutAnObserverALineIsDropped)
{
    line.clear();
    emit_event("status");
    emit_log("text");
    set_event_sink(remember_line);
    set_event_sink({});
    emit_event("status");
    EXPECT_EQ(line, "");
}

TEST(WalletEvents, AnObserverMayTakeItselfAwayWhileItIsCalled)
{
    set_event_sink([](const std::string& text) {
        set_event_sink({});
        line = text;
    });
    emit_event("status");
    EXPECT_EQ(line, "[QX-VAULTRY]\x1f"
                    "status");
}
