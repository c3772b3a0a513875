// Property: the rows that are read survive a write and a read; keeping a name changes its own row only and removing it
// leaves the others; a name that is shown is a valid paymail of this wallet; a file without a list gives no row.
#include "paymail/kept_names.h"

#include "build_values.h"
#include "fuzz/data_folder.h"
#include "fuzz/target.h"
#include "paymail/payname_rules.h"
#include "text/ascii.h"
#include "text/json.h"

namespace {

using nlohmann::json;

constexpr char kFile[] = "payname/payname.json";
constexpr char kPaymail[] = "alice@example.org";
// The key of private key 1, in the file of a program that is not bound.
constexpr char kKey[] = "0279be667ef9dcbbac55a06295ce870b07029bfcdb2dce28d959f2815b16f81798";
constexpr char kAddress[] = "1BgGZ9tcN4rm9KBzDn7KprQz87SZ26SAMH";
constexpr char kWallet[] = R"({"priv":"","pub":"0279be667ef9dcbbac55a06295ce870b07029bfcdb2dce28d959f2815b16f81798"})";

bool is_row_of_name(const json& row)
{
    return lower_ascii(text_member(row, "paymail")) == kPaymail;
}

json without_name(const json& rows)
{
    json others = json::array();
    for (const json& row : rows)
        if (!is_row_of_name(row)) others.push_back(row);
    return others;
}

void check_shown(std::string_view names)
{
    while (!names.empty()) {
        const std::string_view name = names.substr(0, names.find(", "));
        names.remove_prefix(std::min(name.size() + 2, names.size()));
        const std::size_t at = name.find('@');
        require(at != std::string_view::npos && is_valid_alias(name.substr(0, at)) &&
                    is_valid_host(name.substr(at + 1)),
                "a name that is shown is a valid paymail");
        require(lower_ascii(name.substr(at + 1)) != kHouseDomain, "no house name is shown");
    }
}

void check_keeping(const json& rows)
{
    require(keep_payname({kPaymail, kKey, kAddress}), "a name can be kept");
    const json kept = load_paynames();
    require(without_name(kept) == without_name(rows), "keeping a name changes no other row");
    require(kept.size() == rows.size() || kept.size() == rows.size() + 1, "keeping a name adds one row at the most");
    require((", " + names_of_this_wallet() + ", ").find(std::string(", ") + kPaymail + ", ") != std::string::npos,
            "a name that is kept is shown");
    const FilesOnDisk before = files_on_disk();
    require(keep_payname({kPaymail, kKey, kAddress}) && files_on_disk() == before,
            "keeping it again changes nothing on the disk");

    remove_payname("Alice@Example.org");
    require(load_paynames() == without_name(rows), "removing a name leaves the others");
    require(files_on_disk().contains(kFile) == !without_name(rows).empty(), "the file goes with its last row");
}

void check(std::string_view bytes)
{
    empty_data_folder();
    put_file("corvane_vaultry.json", kWallet);
    put_file(kFile, bytes);
    const json rows = load_paynames();
    require(rows.is_array(), "the rows are a list");
    const json document = parse_json(bytes);
    require(rows.empty() || document.is_structured(), "what is no document gives no row");
    check_shown(names_of_this_wallet());
    require(files_on_disk().at(kFile) == bytes, "reading changes nothing on the disk");

    require(save_paynames(rows) && load_paynames() == rows, "the rows survive a write and a read");
    put_file(kFile, bytes);
    check_keeping(rows);
}

const FuzzTarget target("kept_names", check);

}  // namespace
