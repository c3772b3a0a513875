// The simplest zip file there is (PKWARE's APPNOTE, the classic format): one entry, not compressed.
#pragma once

#include <string>
#include <string_view>

// The bytes of a zip file whose only entry has `name` ("/" separates, no entry for the folder) and holds `data`, which
// is smaller than 4 GiB. The entry's date is all zero, so the same data makes the same file at any time.
std::string stored_zip(std::string_view name, std::string_view data);
