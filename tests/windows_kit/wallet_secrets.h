// The wallet that the checks connect, and every form in which a copy of one of its secrets could lie in a program's
// memory.
#pragma once

#include <nlohmann/json.hpp>

#include <set>
#include <string>
#include <vector>

struct Secret {
    std::string name;
    std::vector<std::string> forms;  // as bytes
};

// An English test vector of BIP39: nobody's wallet is searched for.
nlohmann::json published_wallet();

std::vector<Secret> secrets_of_published_wallet();

// Those of them that the program holds as long as the wallet is connected, by their names. What is derived on the way
// is gone as soon as it was used.
std::set<std::string> secrets_of_a_connected_wallet();

// Every eight letters of a password.
std::vector<Secret> secrets_of_password(const std::string& password);

// Besides, of what is sent of a login: user and password in base64. The part before the password is left out.
std::vector<Secret> secrets_of_login(const std::string& user, const std::string& password);
