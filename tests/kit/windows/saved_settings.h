// The settings file of a test's user.
#pragma once

#include <string>

struct Saved {
    std::string site;
    std::string user;
    std::string password;  // in clear; protected in the file
};

void save(const Saved& settings, const std::string& name = {});
Saved saved();
