#include "wallet_bridge/house_labels_file.h"

#include "text/json.h"
#include "wallet_bridge/shared_files.h"
#include "wallet_bridge/wallet_state.h"

namespace {

using nlohmann::json;

constexpr char kOlderPath[] = "userinfo/corvane_paymail.json";  // in the current directory

struct LabelsReading {
    ReadStatus status = ReadStatus::unreadable;
    json document = json::object();
    json on_disk = json::object();  // differs while what the older location holds could not be written
};

json object_of(const std::string& text)
{
    json document = parse_exact_json(text);
    return document.is_object() ? document : json::object();
}

bool write_labels(const json& document)
{
    create_folders(data_directory());
    return rewrite_in_place(house_labels_path(), pretty_exact_json(document));
}

// What the older location holds is written where it belongs at once.
void take_over_older_labels(LabelsReading& labels)
{
    const FileReading older = read_whole_file(kOlderPath);
    if (older.status == ReadStatus::unreadable) labels.status = ReadStatus::unreadable;
    if (older.status != ReadStatus::read) return;
    labels.document = object_of(older.bytes);
    if (!labels.document.empty() && write_labels(labels.document)) labels.on_disk = labels.document;
}

LabelsReading read_labels()
{
    LabelsReading labels;
    const FileReading file = read_whole_file(house_labels_path());
    labels.status = file.status;
    if (file.status == ReadStatus::read) labels.document = labels.on_disk = object_of(file.bytes);
    if (file.status == ReadStatus::missing) take_over_older_labels(labels);
    return labels;
}

KnownHouseLabels stamps_now()
{
    KnownHouseLabels now;
    now.file = file_stamp(house_labels_path());
    if (now.file.status == FileStatus::missing) now.older = file_stamp(kOlderPath);
    return now;
}

bool is_unchanged(const KnownHouseLabels& known, const KnownHouseLabels& now)
{
    const bool is_missing = now.file.status == FileStatus::missing;
    return is_unchanged(known.file, now.file) && (!is_missing || is_unchanged(known.older, now.older));
}

// Between a stamp and the reading after it the file may have come or gone. The older location's document stands where
// it belongs from now on, which is for the next reading to find.
bool is_reading_of(const KnownHouseLabels& now, const LabelsReading& labels)
{
    if (now.file.status == FileStatus::exists) return labels.status == ReadStatus::read;
    return labels.status == ReadStatus::missing && labels.document.empty();
}

}  // namespace

LabelsChange change_house_labels(const ChangeLabels& change)
{
    auto known = wallet_state().house_labels.hold();
    KnownHouseLabels now = stamps_now();
    if (is_unchanged(*known, now)) {
        json document = known->document;
        if (!change(document) || document == known->document) return LabelsChange::done;
    }

    *known = {};
    LabelsReading labels = read_labels();
    if (labels.status == ReadStatus::unreadable) return LabelsChange::unreadable;
    json document = labels.document;
    if (change(document) && document != labels.on_disk)
        return write_labels(document) ? LabelsChange::done : LabelsChange::unwritable;
    if (is_reading_of(now, labels)) {
        now.document = std::move(labels.document);
        *known = std::move(now);
    }
    return LabelsChange::done;
}
