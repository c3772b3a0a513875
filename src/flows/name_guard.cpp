#include "flows/name_guard.h"

#include "paymail/kept_names.h"
#include "paymail/payer_questions.h"
#include "paymail/payment_destination.h"
#include "text/ascii.h"
#include "text/json.h"

#include <algorithm>
#include <utility>

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

bool is_public_key(const std::string& key)
{
    return hex_decode(key).size() == 33 && (key.starts_with("02") || key.starts_with("03"));
}

NameState key_state(const std::string& reply_body, const std::string& wallets_key)
{
    const std::string key = published_key(reply_body);
    if (key == lower_ascii(wallets_key)) return NameState::pays_wallet;
    return is_public_key(key) ? NameState::other_key : NameState::unclear;
}

NameState destination_state(const std::string& reply_body, TimeForm form, const std::string& address)
{
    switch (payee_of(reply_body, address)) {
    case Payee::other_address:
        return NameState::other_address;
    case Payee::other_output:
        return NameState::other_output;
    case Payee::unclear:
        return NameState::unclear;
    case Payee::wallet:
        break;
    }
    const bool lacks_script = form == TimeForm::iso && text_member(parse_json(reply_body), "output").empty();
    return lacks_script ? NameState::unclear : NameState::pays_wallet;
}

}  // namespace

NamesOfWallet names_to_guard()
{
    const PublicIdentity wallet = public_identity();
    return {wallet, names_of_wallet(wallet)};
}

NameLook::NameLook(NamesOfWallet names, LookLimits limits)
    : m_names(std::move(names)), m_limits(std::move(limits)), m_end(Clock::now() + m_limits.whole_time)
{
    for (std::size_t i = 0; i < m_names.paymails.size(); ++i) {
        m_states.push_back({m_names.paymails[i], NameState::unclear});
        const std::string domain = split_payname(m_names.paymails[i]).domain;
        auto site = std::ranges::find(m_sites, domain, &Site::domain);
        if (site == m_sites.end()) site = m_sites.insert(site, {domain, {}});
        site->names.push_back(i);
    }
    for (std::size_t i = 0; i < std::min(m_sites.size(), kMostSitesAtOnce); ++i)
        m_threads.emplace_back([this] { work(); });
}

NameLook::~NameLook()
{
    for (std::thread& thread : m_threads)
        thread.join();
}

std::vector<LookedAtName> NameLook::states()
{
    std::unique_lock lock(m_mutex);
    m_thread_ended.wait_until(lock, m_end, [this] { return m_ended_threads == m_threads.size(); });
    return m_states;
}

void NameLook::work()
{
    while (const Site* const site = take_site())
        ask_site(*site);
    const std::scoped_lock lock(m_mutex);
    ++m_ended_threads;
    m_thread_ended.notify_all();
}

const NameLook::Site* NameLook::take_site()
{
    const std::scoped_lock lock(m_mutex);
    return m_taken_sites < m_sites.size() ? &m_sites[m_taken_sites++] : nullptr;
}

void NameLook::ask_site(const Site& site)
{
    if (!request_time()) return;
    const auto time = [this] { return request_time(); };
    const PayersConnections connections;
    const auto discovery = discover(site.domain, time);
    if (!discovery) return;
    for (const std::size_t name : site.names) {
        const NameState state = ask_name(*discovery, m_names.paymails[name]);
        const std::scoped_lock lock(m_mutex);
        m_states[name].state = state;
    }
}

// Every question is put even when one had no answer: any of them may show somebody else.
NameState NameLook::ask_name(const Discovery& discovery, const std::string& paymail) const
{
    const auto time = [this] { return request_time(); };
    const Payname name = split_payname(paymail);
    const auto pki = pki_reply(discovery, name, time);
    NameState state = pki ? key_state(*pki, m_names.wallet.public_key) : NameState::unclear;
    for (const TimeForm form : {TimeForm::number, TimeForm::iso}) {
        if (pays_somebody_else(state)) return state;
        const auto reply = destination_reply(discovery, name, form, time);
        const NameState seen = reply ? destination_state(*reply, form, m_names.wallet.address) : NameState::unclear;
        if (seen != NameState::pays_wallet) state = seen;
    }
    return state;
}

std::optional<milliseconds> NameLook::request_time() const
{
    const auto left = std::chrono::duration_cast<milliseconds>(m_end - Clock::now());
    if (left <= milliseconds(0) || !m_limits.goes_on()) return std::nullopt;
    return std::min(left, kRequestTime);
}
