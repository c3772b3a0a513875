// What the current Windows user trusts. Windows itself asks the user before it adds an authority and before it takes
// one away.
#pragma once

#include <string>

inline constexpr char kAuthorityName[] = "Brasslet Windows kit, only while its checks run";

// Windows' error, 0 once the authority is trusted. DER.
unsigned long trust(const std::string& certificate);

// Every authority of the kit's name, those of runs that were cut short as well. How many there were.
int take_authorities_away();
