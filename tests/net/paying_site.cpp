#include "net/paying_site.h"

#include "text/hex.h"
#include "text/json.h"
#include "wallet/address.h"

std::string discovery_document(const std::string& host)
{
    const std::string base = "https://" + host;
    return compact_json(
        {{"bsvalias", "1.0"},
         {"capabilities",
          {{"pki", base + "/id/{alias}@{domain.tld}"}, {"paymentDestination", base + "/pay/{alias}@{domain.tld}"}}}});
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
