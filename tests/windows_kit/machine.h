// The system that the checks run on.
#pragma once

#include <string>

bool is_wine();

// "Windows 10.0.19045", or "Wine 8.0, which says that it is Windows 10.0.18362".
std::string system_name();

std::string local_time();  // "2026-01-31 17:05"

// In hex; empty when the file cannot be read.
std::string sha256_of_file(const std::string& path);
