// The stand-in's paths: both separators of Windows mean "/".
#pragma once

#include <string>

std::string native_path(const std::string& path);
