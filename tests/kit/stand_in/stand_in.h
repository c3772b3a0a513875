// What a test can set and see of the native stand-in for platform/.
#pragma once

#include "platform/dns.h"

#include <chrono>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

enum class FileLook { opened, asked };

// Operations on files that fail from now on, and what was written.
struct FileFaults {
    bool reads_fail = false;
    bool writes_fail = false;  // the file cannot be opened for writing
    bool replaces_fail = false;
    bool renames_fail = false;
    bool copies_fail = false;
    bool stamps_fail = false;
    std::optional<std::size_t> largest_file;              // the disk is full beyond this size: a write stops there
    std::vector<std::string> written;                     // paths whose bytes were written or replaced, in order
    std::function<void(const std::string& path)> on_use;  // called before a file is read, written, moved or removed
    std::function<void(const std::string& path, FileLook look)> on_look;  // before it is opened, or asked about
    std::function<bool(const std::string& path)> refuses;  // asked before a file is changed: true when it cannot be
};

struct StandIn {
    FileFaults files;
    std::string local_app_data;                     // answer of local_app_data()
    std::string executable_folder = ".";            // answer of executable_folder()
    std::vector<SrvRecord> srv_records;             // answer of query_srv()
    std::vector<std::string> srv_queries;           // the names that were asked for
    std::function<void()> during_srv_query;         // what happens before the answer, when it is set, on any thread
    int wallet_app_notices = 0;                     // calls of notify_wallet_app()
    bool protection_works = true;                   // protect_for_user() succeeds
    std::string resource;                           // answer of load_resource() for every id
    int wallet_app_raises = 0;                      // calls of raise_wallet_app()
    bool wallet_app_is_there = true;                // answer of raise_wallet_app()
    std::vector<std::chrono::milliseconds> pauses;  // that pause() was asked for; none of them takes any time
    std::function<void()> during_pause;             // what happens meanwhile, when it is set
};

StandIn& stand_in();

void tell_look(const std::string& path, FileLook look);
