// A file whose text cannot be made out, and which is about to be replaced: a person may still read something in it.
#pragma once

#include <string>

// Copies the file beside itself, as "NAME.damaged-MILLISECONDS" (since 1970-01-01 UTC). True when the copy is on the
// disk; otherwise the file must not be replaced.
bool keep_damaged_file(const std::string& path);
