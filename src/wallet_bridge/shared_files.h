// The path of every file that this program keeps, most of which it shares with the wallet application (docs/files.md).
// All lie in the data directory, and are computed afresh on every use. Nothing here looks at a disk.
#pragma once

#include <string>

// The local application-data folder (or "." when there is none) followed by "\Corvane". Paths inside it are made by
// appending literals that begin with "/": Windows takes both separators.
std::string data_directory();

std::string wallet_list_path();
std::string wallet_list_lock_path();

std::string wallet_file_path(const std::string& wallet_id);  // empty for an empty id
std::string older_wallet_path();                             // the single wallet of older wallet applications
std::string moving_mark_path();                              // beside it while it moves into the wallet list
std::string seal_path(const std::string& wallet_file);       // the file that locks the wallet file beside it

std::string bind_record_path_for(const std::string& bind_key);
std::string connect_request_path(const std::string& request_id);
std::string connect_reply_path(const std::string& request_id);

std::string house_labels_path();
std::string spent_snapshot_path(const std::string& spent_snapshot_key);

std::string settings_path();
std::string kept_names_path();
std::string plugin_package_path();

// Where a file whose text cannot be made out is kept for a person to look at, beside itself: the name ends in
// ".damaged-" and the milliseconds since 1970-01-01 UTC.
std::string damaged_path(const std::string& path);
