// The libraries that a program has loaded, and decoys of them that somebody planted beside it.
#pragma once

#include <windows.h>

#include <filesystem>
#include <set>
#include <string>

using LibraryPaths = std::set<std::filesystem::path>;
using LibraryNames = std::set<std::wstring>;

// All in small letters.
std::wstring in_small_letters(std::wstring text);
LibraryPaths loaded_libraries(HANDLE process);  // the program itself left out
LibraryNames names_of(const LibraryPaths& paths);

// Those that Brasslet, or libcurl for it, binds at the first call or loads by name.
LibraryNames bound_late();

// Makes `folder`, with a copy of Brasslet and with a decoy under each of the names.
void plant(const std::filesystem::path& folder, const LibraryNames& names);

// The names of the decoys there that were loaded.
LibraryNames loaded_decoys(const std::filesystem::path& folder);
