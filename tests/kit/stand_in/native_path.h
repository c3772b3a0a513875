// The stand-in's paths: both separators of Windows mean "/". Empty, which names no file, for one with a zero byte.
#pragma once

#include <string>

std::string native_path(const std::string& path);
