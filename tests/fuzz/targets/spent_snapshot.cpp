// Property: the outpoints that are read survive a write and a read, and reading changes nothing on the disk.
#include "wallet_bridge/spent_snapshot.h"

#include "fuzz/data_folder.h"
#include "fuzz/target.h"
#include "text/json.h"

namespace {

constexpr char kFile[] = "ord_snap/1700000000000_spent.json";

void check(std::string_view bytes)
{
    empty_data_folder();
    put_file(kFile, bytes);
    const auto outpoints = read_spent_snapshot("1700000000000");
    require(files_on_disk().at(kFile) == bytes, "reading changes nothing on the disk");
    require(outpoints.empty() || parse_json(bytes).is_object(), "what is no object gives nothing");

    put_file(kFile, pretty_json({{"outpoints", outpoints}}));
    require(read_spent_snapshot("1700000000000") == outpoints, "the outpoints survive a write and a read");

    // The key of such a file is made of an id from outside too.
    const std::string key = spent_snapshot_key(bytes, "", "");
    require(!key.empty() && key.size() <= 80 && spent_snapshot_key(key, "", "") == key, "a key is a short plain name");
}

const FuzzTarget target("spent_snapshot", check);

}  // namespace
