#include "update/version_text.h"

#include "build_values.h"
#include "update/build_number.h"

std::string version_text(bool update_is_available)
{
    if (update_is_available) return std::string("Update available, ") + kMakersPage;
    return "Version " + version_of_build(kOwnBuild);
}
