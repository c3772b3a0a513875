#include "wallet_bridge/damaged_file.h"

#include "platform/files.h"
#include "text/clock.h"

bool keep_damaged_file(const std::string& path)
{
    return copy_file(path, path + ".damaged-" + std::to_string(milliseconds_since_epoch()));
}
