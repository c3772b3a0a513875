// Property: a start binds the wallet that the record names, or else the only one of the wallet list, and writes a
// record that the next start reads the same; a start that binds nothing changes nothing on the disk.
#include "wallet_bridge/binding.h"

#include "fuzz/data_folder.h"
#include "fuzz/target.h"
#include "text/json.h"
#include "wallet_bridge/loaded_wallet.h"
#include "wallet_bridge/shared_files.h"

namespace {

constexpr char kRecord[] = "binds/c__tools_brasslet.json";
constexpr char kTwoWallets[] = R"({"wallets":[{"id":"1"},{"id":"2"}]})";
constexpr char kOneWallet[] = R"({"wallets":[{"id":"1"}]})";

void start()
{
    bind_at_startup("C:\\Tools\\Brasslet", "Brasslet");
}

bool does_bound_wallet_load()
{
    HeldWallet held = hold_wallet();
    return load_wallet(held);
}

void check_record(const std::string& id)
{
    const nlohmann::json record = {{"app", "Brasslet"}, {"instance", "C:\\Tools\\Brasslet"}, {"wallet_id", id}};
    require(files_on_disk().at(kRecord) == pretty_json(record),
            "the record names the wallet, the program and its folder");
    const FilesOnDisk before = files_on_disk();
    start();
    require(bound_wallet_id() == id && files_on_disk() == before, "the record survives a write and a read");
}

void check(std::string_view bytes)
{
    empty_data_folder();
    put_file("wallets.lock", "");
    put_file("wallets.json", kTwoWallets);
    put_file("wallets/other/wallet.json", "no wallet");
    put_file(kRecord, bytes);
    const FilesOnDisk before = files_on_disk();
    start();
    const std::string id = bound_wallet_id();
    require(id == wallet_binding().wallet_id, "memory and record agree");
    require(wallet_file_path(id).empty() == id.empty(), "a bound wallet has a file");
    require(!does_bound_wallet_load() && !is_wallet_locked(), "a wallet that is not there neither loads nor is locked");
    if (!id.empty()) {
        require(id == text_member(parse_json(bytes), "wallet_id"), "the record's wallet is bound");
        check_record(id);
        return;
    }
    require(files_on_disk() == before, "a start that binds nothing changes nothing on the disk");
    put_file("wallets.json", kOneWallet);
    start();
    require(bound_wallet_id() == "1", "the only wallet is bound instead");
    check_record("1");
}

const FuzzTarget target("bind_record", check);

}  // namespace
