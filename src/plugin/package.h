// The WordPress plugin on its way from the executable to the site: a zip file that the user uploads in WordPress.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// CRC-32 of zip files (PKWARE's APPNOTE): reflected polynomial 0xEDB88320, initial value and final XOR of all ones; 0
// for no bytes.
std::uint32_t crc32(std::string_view bytes);

// A zip file (PKWARE's APPNOTE) with one uncompressed entry that has `name` ("/" separates, no entry for the folder)
// and holds `data`, less than 4 GiB. The entry's date is zero: the same data always gives the same bytes.
std::string stored_zip(std::string_view name, std::string_view data);

// Writes the zip file at `path` whose only entry is "brasslet/brasslet.php" with the bytes of `plugin`; its folder is
// made when it is missing. False when it cannot be written; an older zip of that name then stays as it was.
[[nodiscard]] bool write_plugin_zip(const std::string& path, std::string_view plugin);
