// Property: only a JSON object whose "ok" is true approves, and then exactly the wallet that it names is bound, in
// memory and in the record; every other reply is a refusal and changes nothing.
#include "wallet_bridge/connect.h"

#include "fuzz/data_folder.h"
#include "fuzz/target.h"
#include "text/json.h"
#include "wallet_bridge/binding.h"

namespace {

constexpr char kReply[] = "connect/1700000000000.rep.json";
constexpr char kRecord[] = "binds/c__tools_brasslet.json";

void check(std::string_view bytes)
{
    empty_data_folder();
    put_file("wallets.json", R"({"wallets":[{"id":"before"}]})");
    bind_at_startup("C:\\Tools\\Brasslet", "Brasslet");
    require(read_connect_reply("1700000000000") == ReplyState::pending, "without a reply nothing is decided");
    put_file(kReply, bytes);

    const FilesOnDisk before = files_on_disk();
    const ReplyState state = read_connect_reply("1700000000000");
    require(state != ReplyState::pending, "a reply that is there decides");
    FilesOnDisk after = files_on_disk();
    const nlohmann::json reply = parse_json(bytes);
    if (state == ReplyState::denied) {
        require(after == before && bound_wallet_id() == "before", "a refusal changes nothing");
        return;
    }
    require(reply.is_object() && reply.value("ok", nlohmann::json()) == true, "only a true \"ok\" approves");
    const std::string id = text_member(reply, "wallet_id");
    require(bound_wallet_id() == (id.empty() ? "before" : id), "the wallet that the reply names is bound");
    require(wallet_binding().wallet_id == bound_wallet_id(), "memory and record agree");
    after[kRecord] = before.at(kRecord);
    require(after == before, "an approval changes no other file");

    const nlohmann::json same = {{"ok", true}, {"wallet_id", id}};
    put_file(kReply, pretty_json(same));
    const std::string bound = bound_wallet_id();
    require(read_connect_reply("1700000000000") == ReplyState::approved && bound_wallet_id() == bound,
            "the approval survives a write and a read");
}

const FuzzTarget target("connect_reply", check);

}  // namespace
