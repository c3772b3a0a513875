// The environment variables of this process, all of them at once.
#pragma once

#include <map>
#include <string>

#ifdef _WIN32
using Environment = std::map<std::wstring, std::wstring>;
#else
using Environment = std::map<std::string, std::string>;
#endif

Environment current_environment();

// Makes them what they were when current_environment() was called. No other thread may read them meanwhile.
void restore_environment(const Environment& environment);
