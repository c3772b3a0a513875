// What the name card shows of the name: the text of the name field at the start, and the payname that it would become.
#pragma once

#include <string>
#include <string_view>

// The payname of `typed` (trimmed text of the name field) on the site of the settings, or "name@your-site" when either
// of them is not usable.
std::string name_preview(std::string_view typed, std::string site);

// The name to put into the field: the first name of `names_on_site` (paynames joined by ", "), because a published
// name wins over a saved one, or else `saved`.
std::string name_for_field(const std::string& saved, const std::string& names_on_site);
