// "corvane_paymail.json", the file of the house labels: read, changed and written in one operation. See house_labels.h.
#pragma once

#include "platform/file_stamp.h"

#include <nlohmann/json.hpp>

#include <functional>

// What the file held when it was last read and nothing had to be written.
struct KnownHouseLabels {
    FileStamp file;   // taken before the reading
    FileStamp older;  // of the older location, which counts while the file is missing
    nlohmann::json document = nlohmann::json::object();
};

// Done: the file says what was wanted. Unreadable: it is there, but nobody knows what it says, and it is not written.
enum class LabelsChange { done, unreadable, unwritable };

// Changes the document, an object, in the same way whenever it is called; says whether the file is to be changed.
using ChangeLabels = std::function<bool(nlohmann::json& document)>;

// Has `change` change the document. While the file is as it was when it was last read, it is not opened for a change
// that changes nothing; any other change works on what the file says now, whatever it said before. Members that
// `change` does not name stay as they stand. A file that says what is wanted already is not written.
[[nodiscard]] LabelsChange change_house_labels(const ChangeLabels& change);
