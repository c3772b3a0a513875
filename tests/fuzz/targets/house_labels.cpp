// Property: a label is refused exactly when another key holds it or the key has used up its labels, and then nothing on
// the disk changes; an accepted one is found again and changes only its own row and what this PC calls its own; a
// picture that is set and taken away leaves everything else as it was.
#include "wallet_bridge/house_labels.h"

#include "fuzz/data_folder.h"
#include "fuzz/target.h"
#include "text/ascii.h"
#include "text/json.h"

#include <algorithm>

namespace {

using nlohmann::json;

constexpr char kFile[] = "corvane_paymail.json";
constexpr char kKey[] = "02ab";
constexpr char kLabel[] = "ann";
constexpr char kAddress[] = "1BgGZ9tcN4rm9KBzDn7KprQz87SZ26SAMH";

json document()
{
    const FilesOnDisk files = files_on_disk();
    const auto file = files.find(kFile);
    json labels = file == files.end() ? json() : parse_exact_json(file->second);
    return labels.is_object() ? labels : json::object();
}

// The document apart from what a registration of the label sets, and what it leaves out when it is not of use.
json without_the_label(json labels)
{
    labels.erase("self");
    json& names = labels["names"];
    if (!names.is_object()) names = json::object();
    json& row = names[kLabel];
    if (!row.is_object()) row = json::object();
    row.erase("pubkey");
    row.erase("address");
    return labels;
}

json without_pictures(json labels)
{
    if (labels.contains("avatars") && labels["avatars"].is_object()) labels["avatars"].erase(kKey);
    if (labels.value("avatars", json()) == json::object()) labels.erase("avatars");
    json names = labels.value("names", json());
    if (!names.is_object()) return labels;
    for (json& row : names)
        if (lower_ascii(text_member(row, "pubkey")) == kKey) row.erase("avatar");
    labels["names"] = names;
    return labels;
}

// Whether the identity may have the label: it holds it, or nobody does and it has not used up its labels.
bool is_free_for_key(const json& labels)
{
    const json names = labels.value("names", json());
    if (!names.is_object()) return true;
    if (names.contains(kLabel)) return lower_ascii(text_member(names[kLabel], "pubkey")) == kKey;
    const auto is_held = [](const json& row) { return lower_ascii(text_member(row, "pubkey")) == kKey; };
    const auto held = std::count_if(names.begin(), names.end(), is_held);
    const std::string role = lower_ascii(text_member(labels, "host_role"));
    return role == "architect" || held < (role == "dev" ? 20 : 10);
}

void check_registration()
{
    const FilesOnDisk before = files_on_disk();
    const json known = document();
    const std::string refusal =
        register_house_label(std::string(" @Ann@somewhere "), "02AB", {.payment = kAddress, .ordinals = {}});
    require(refusal.empty() == is_free_for_key(known), "a label of another key, or one too many, is refused");
    if (!refusal.empty()) {
        require(files_on_disk() == before, "a refused label changes nothing on the disk");
        return;
    }
    require(house_label_of(kKey) == kLabel, "an accepted label is found again");
    require(without_the_label(document()) == without_the_label(known), "no other row and no other member has changed");
    const FilesOnDisk after = files_on_disk();
    require(register_house_label(kLabel, kKey, {}).empty() && files_on_disk() == after,
            "the same label again changes nothing on the disk");
}

void check_pictures()
{
    const json known = document();
    require(set_house_avatar(kKey, "picture_0").empty(), "a picture can be set");
    require(document()["avatars"][kKey] == "picture_0", "the picture survives a write and a read");
    require(set_house_avatar(kKey, "").empty(), "a picture can be taken away");
    const json after = document();
    // What stood in the place of the pictures and was no object is gone.
    const bool had_pictures = known.contains("avatars") && !known["avatars"].is_object();
    require(had_pictures || without_pictures(after) == without_pictures(known), "a picture changes nothing else");
    require(!after.contains("avatars") || !after["avatars"].contains(kKey), "no picture is left");
}

void check(std::string_view bytes)
{
    empty_data_folder();
    put_file(kFile, bytes);
    const std::string label = house_label_of(kKey);
    require(files_on_disk().at(kFile) == bytes, "reading changes nothing on the disk");
    if (!label.empty()) {
        const json row = document()["names"][label];
        require(lower_ascii(text_member(row, "pubkey")) == kKey, "the label that is found belongs to the key");
    }
    check_registration();
    set_house_ord_address(kKey, kAddress);
    const FilesOnDisk before = files_on_disk();
    set_house_ord_address(kKey, kAddress);
    require(files_on_disk() == before, "the same address again changes nothing on the disk");
    check_pictures();
}

const FuzzTarget target("house_labels", check);

}  // namespace
