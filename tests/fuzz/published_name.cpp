#include "fuzz/published_name.h"

#include "fuzz/data_folder.h"
#include "fuzz/target.h"
#include "kit/stand_in/stand_in.h"
#include "kit/wallet_files.h"
#include "paymail/kept_names.h"
#include "paymail/verification.h"
#include "text/json.h"
#include "wallet_bridge/binding.h"
#include "wallet_bridge/wallet_identity.h"

namespace {

constexpr char kPaynameFile[] = "payname/payname.json";
constexpr char kOtherNames[] = R"({"names":[{"paymail":"bob@example.org"}]})";
constexpr char kName[] = "alice@example.org";

PublishedName bound_wallet()
{
    empty_data_folder();
    put_file("wallets.json", R"({"wallets":[{"id":"1","name":"Savings"}]})");
    put_file("wallets/1/wallet.json", phrase_wallet().dump());
    bind_at_startup("C:\\Tools\\Brasslet", "Brasslet");
    return {identity_pubkey().value_or(""), wallet_address().value_or("")};
}

}  // namespace

const PublishedName& published_name()
{
    static const PublishedName name = bound_wallet();
    return name;
}

std::string discovery_document()
{
    return compact_json({{"bsvalias", "1.0"},
                         {"capabilities",
                          {{"pki", "https://example.org/id/{alias}@{domain.tld}"},
                           {"paymentDestination", "https://example.org/address/{alias}@{domain.tld}"}}}});
}

std::string pki_document()
{
    return compact_json({{"bsvalias", "1.0"}, {"handle", kName}, {"pubkey", published_name().key}});
}

std::string payment_destination()
{
    return compact_json({{"address", published_name().address}});
}

bool is_kept_after_verification()
{
    const PublishedName& name = published_name();
    put_file(kPaynameFile, kOtherNames);
    stand_in().srv_queries.clear();
    const FilesOnDisk before = files_on_disk();
    const Verification verification = verify_and_keep(kName, {name.key, name.address});
    FilesOnDisk after = files_on_disk();
    require(verification.is_kept == verification.message.empty(), "a refusal comes with a sentence");
    if (!verification.is_kept) {
        require(after == before, "a refused name changes nothing on the disk");
        return false;
    }
    const nlohmann::json row = {{"paymail", kName}, {"pubkey", name.key}, {"address", name.address}};
    require(load_paynames().size() == 2 && load_paynames().back() == row, "a kept name stands among the kept names");
    after[kPaynameFile] = before.at(kPaynameFile);
    require(after == before, "keeping a name changes no other file");
    return true;
}
