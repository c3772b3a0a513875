#include "paymail/kept_names.h"

#include "build_values.h"
#include "paymail/payname_rules.h"
#include "platform/files.h"
#include "text/ascii.h"
#include "text/json.h"
#include "wallet_bridge/shared_files.h"

#include <optional>
#include <utility>

namespace {

using nlohmann::json;

// The older forms are written back with more around them: rows that could then not be read again are none.
json rewritable(json rows)
{
    return parse_exact_json(pretty_exact_json({{"names", rows}})).is_discarded() ? json::array() : rows;
}

json rows_of(json document)
{
    if (document.is_object()) {
        if (const auto names = document.find("names"); names != document.end() && names->is_array())
            return std::move(*names);
        if (document.contains("paymail")) return rewritable(json::array({document}));
    }
    return document.is_array() ? rewritable(std::move(document)) : json::array();
}

// Empty when there is a file that cannot be read just now: rows that nobody saw must not be written over.
std::optional<json> readable_paynames()
{
    const std::optional<std::string> text = read_file(kept_names_path());
    if (!text)
        return file_status(kept_names_path()) == FileStatus::missing ? std::optional(json::array()) : std::nullopt;
    return rows_of(parse_exact_json(*text));
}

bool is_row_of(const json& row, const std::string& lower_case_paymail)
{
    return lower_ascii(text_member(row, "paymail")) == lower_case_paymail;
}

// The member's own text, not a copy of it; null when there is none.
const std::string* member_text(const json& row, const char* name)
{
    if (!row.is_object()) return nullptr;
    const auto member = row.find(name);
    return member == row.end() ? nullptr : member->get_ptr<const std::string*>();
}

bool is(const std::string* text, const std::string& other)
{
    return text != nullptr && *text == other;
}

bool is_shown(const std::string& paymail)
{
    const std::size_t at = paymail.find('@');
    if (at == std::string::npos) return false;
    const std::string domain = paymail.substr(at + 1);
    return is_valid_alias(paymail.substr(0, at)) && is_valid_host(domain) && lower_ascii(domain) != kHouseDomain;
}

}  // namespace

json load_paynames()
{
    return rows_of(parse_exact_json(read_file(kept_names_path()).value_or("")));
}

bool save_paynames(const json& rows)
{
    const std::string path = kept_names_path();
    const std::string text = pretty_exact_json({{"names", rows}});
    if (read_file(path) == text) return true;
    return create_folders(parent_folder(path)) && rewrite_in_place(path, text);
}

bool keep_payname(const PaynameRecord& record)
{
    std::optional<json> rows = readable_paynames();
    if (!rows) return false;
    json* kept = nullptr;
    for (json& row : *rows)
        if (kept == nullptr && is_row_of(row, lower_ascii(record.paymail))) kept = &row;
    if (kept == nullptr) {
        rows->push_back(json::object());
        kept = &rows->back();
    }
    (*kept)["paymail"] = record.paymail;
    (*kept)["pubkey"] = record.pubkey;
    (*kept)["address"] = record.address;
    return save_paynames(*rows);
}

void remove_payname(const std::string& paymail)
{
    const std::optional<json> rows = readable_paynames();
    if (!rows) return;
    json others = json::array();
    for (const json& row : *rows)
        if (!is_row_of(row, lower_ascii(paymail))) others.push_back(row);
    if (others.empty()) {
        remove_file(kept_names_path());
    } else {
        // A row that stays is not shown for a wallet that it does not pay; the next removal tries again.
        static_cast<void>(save_paynames(others));
    }
}

std::vector<std::string> names_of_wallet(const PublicIdentity& wallet)
{
    if (!wallet.is_complete()) return {};
    // Nothing of these rows is written again.
    const json rows = rows_of(parse_json(read_file(kept_names_path()).value_or("")));
    std::vector<std::string> names;
    for (const json& row : rows) {
        if (!is(member_text(row, "pubkey"), wallet.public_key) || !is(member_text(row, "address"), wallet.address))
            continue;
        const std::string* const paymail = member_text(row, "paymail");
        if (paymail != nullptr && is_shown(*paymail)) names.push_back(*paymail);
    }
    return names;
}

std::string names_of_this_wallet()
{
    return joined(names_of_wallet(public_identity()));
}
