#include "kit/wire/paying_site.h"

#include "kit/stand_in/stand_in.h"
#include "text/ascii.h"
#include "text/json.h"
#include "wallet/address.h"

#include <algorithm>
#include <cctype>

std::string discovery_document(const std::string& host)
{
    const std::string base = "https://" + host;
    return compact_json(
        {{"bsvalias", "1.0"},
         {"capabilities",
          {{"pki", base + "/id/{alias}@{domain.tld}"}, {"paymentDestination", base + "/pay/{alias}@{domain.tld}"}}}});
}

std::string upper_ascii(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return std::toupper(c); });
    return text;
}

std::string output_paying(const std::string& address)
{
    const Hash160 hash = hash160_from_address(address).value();
    return R"({"satoshis":1,"script":"76a914)" + hex_encode(hash) + "88ac\"}";
}

PayingSite::PayingSite()
{
    answer(kDiscoveryPath, discovery_document("brasslet.test"));
    answer(kPkiPath, compact_json({{"bsvalias", "1.0"}, {"handle", "alice@brasslet.test"}, {"pubkey", wallet.key}}));
    answer(kPayPath, R"({"outputs":[)" + output_paying(wallet.address) + R"(],"reference":"r"})");
}

void PayingSite::wallet_file_changes(int reading, const std::string& text) const
{
    stand_in().files.on_use = [this, reading, text, readings = 0, is_own = false](const std::string& path) mutable {
        if (is_own || !path.ends_with(kBoundWalletFile)) return;
        ++readings;
        is_own = true;
        if (readings == reading) wallet.folder.write(kBoundWalletFile, text);
        if (readings == reading + 1) wallet.folder.write(kBoundWalletFile, wallet.text);
        is_own = false;
    };
}
