// Kept names on sites that answer as the plugin does, and looks at them.
#pragma once

#include "flows/name_guard.h"
#include "kit/stand_in/stand_in.h"
#include "kit/wire/paying_site.h"
#include "text/json.h"

#include <string>
#include <utility>
#include <vector>

inline constexpr char kOtherKey[] = "0279be667ef9dcbbac55a06295ce870b07029bfcdb2dce28d959f2815b16f81798";
inline constexpr char kOtherAddress[] = "1BgGZ9tcN4rm9KBzDn7KprQz87SZ26SAMH";
inline constexpr char kAlice[] = "alice@brasslet.test";

inline std::string pki_of(const std::string& key)
{
    return compact_json({{"bsvalias", "1.0"}, {"pubkey", key}});
}

inline std::string address_reply(const std::string& address)
{
    return compact_json({{"address", address}});
}

inline std::string script_reply(const std::string& address, const std::string& paid_by_script)
{
    return compact_json(
        {{"address", address}, {"output", text_member(parse_json(output_paying(paid_by_script)), "script")}});
}

class Guarding : public PayingSite {
protected:
    Guarding() { publish(server, kAlice); }

    // `site` answers for `paymail` as after a publish.
    void publish(HttpsServer& site, const std::string& paymail) const
    {
        site.answer("GET /id/" + paymail, Answer{200, pki_of(wallet.key), {}, Fault::none});
        destinations(site, paymail, address_reply(wallet.address), script_reply(wallet.address, wallet.address));
    }

    // What comes to the request with a number for its time, and to the one with an ISO time after it.
    static void destinations(HttpsServer& site, const std::string& paymail, const std::string& to_number,
                             const std::string& to_iso)
    {
        site.answer("POST /pay/" + paymail, {{200, to_number, {}, Fault::none}, {200, to_iso, {}, Fault::none}});
    }

    NamesOfWallet names(std::vector<std::string> paymails) const
    {
        return {{wallet.key, wallet.address}, std::move(paymails)};
    }
    std::vector<LookedAtName> look(std::vector<std::string> paymails, LookLimits limits = {}) const
    {
        return NameLook(names(std::move(paymails)), std::move(limits)).states();
    }
    NameState look_at_alice() const { return look({kAlice}).front().state; }
};
