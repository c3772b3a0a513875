// The name guard: asks for the kept names what payers ask, and tells which of them pay somebody else. It sends no login
// and changes nothing.
#pragma once

#include "paymail/discovery.h"
#include "wallet_bridge/wallet_identity.h"

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

enum class NameState {
    pays_wallet,
    other_key,      // of a valid public key that is not the wallet's
    other_address,  // as in paymail/payment_destination.h
    other_output,
    unclear,  // not every question had the answer of a paymail service that has the name
};

// Whether the site definitely tells payers of somebody else.
inline bool pays_somebody_else(NameState state)
{
    return state != NameState::pays_wallet && state != NameState::unclear;
}

struct LookedAtName {
    std::string paymail;
    NameState state = NameState::unclear;

    bool operator==(const LookedAtName&) const = default;
};

// A wallet and its kept names.
struct NamesOfWallet {
    PublicIdentity wallet;
    std::vector<std::string> paymails;
};

// Of the connected wallet, by one load of it. No names when there is none.
NamesOfWallet names_to_guard();

struct LookLimits {
    std::chrono::milliseconds whole_time = std::chrono::minutes(1);
    // Asked before each request, on any thread: false when the look is not wanted any more.
    std::function<bool()> goes_on = [] { return true; };
};

inline constexpr std::size_t kMostSitesAtOnce = 4;

// One look at all names, which begins at once on threads of its own: names of one site are asked for one after the
// other, sites side by side.
class NameLook {
public:
    NameLook(NamesOfWallet names, LookLimits limits);
    NameLook(const NameLook&) = delete;
    NameLook& operator=(const NameLook&) = delete;
    ~NameLook();  // waits for the requests under way

    // Waits until every name was asked for, or the time is over: whatever is not known then is unclear. In the order of
    // the names.
    [[nodiscard]] std::vector<LookedAtName> states();

private:
    struct Site {
        std::string domain;
        std::vector<std::size_t> names;  // by their index
    };

    void work();
    [[nodiscard]] const Site* take_site();
    void ask_site(const Site& site);
    [[nodiscard]] NameState ask_name(const Discovery& discovery, const std::string& paymail) const;
    [[nodiscard]] std::optional<std::chrono::milliseconds> request_time() const;

    const NamesOfWallet m_names;
    const LookLimits m_limits;
    const std::chrono::steady_clock::time_point m_end;
    std::vector<Site> m_sites;

    std::mutex m_mutex;
    std::condition_variable m_thread_ended;
    std::vector<LookedAtName> m_states;
    std::size_t m_taken_sites = 0;
    std::size_t m_ended_threads = 0;

    std::vector<std::thread> m_threads;
};
