// The search for secrets in the memory of another process, and in files.
#pragma once

#include "windows_kit/wallet_secrets.h"

#include <windows.h>

#include <functional>
#include <set>
#include <string>
#include <vector>

using MemoryRange = std::function<bool(const MEMORY_BASIC_INFORMATION&)>;

// The names of those secrets of which any form stands in the memory of the process, in all of it or in the regions of
// which `is_searched` holds. The test fails when the memory cannot be read.
std::set<std::string> found_in_memory(HANDLE process, const std::vector<Secret>& secrets,
                                      const MemoryRange& is_searched = nullptr);

std::set<std::string> found_in_file(const std::wstring& path, const std::vector<Secret>& secrets);
