// What a test can set and see of the native stand-in for platform/.
#pragma once

#include "platform/dns_query.h"

#include <string>
#include <vector>

struct StandIn {
    std::string local_app_data;            // answer of local_app_data()
    std::string executable_folder = ".";   // answer of executable_folder()
    std::vector<SrvRecord> srv_records;    // answer of query_srv()
    std::vector<std::string> srv_queries;  // the names that were asked for
    int wallet_app_notices = 0;            // calls of notify_wallet_app()
    bool protection_works = true;          // protect_for_user() succeeds
    std::string resource;                  // answer of load_resource() for every id
};

StandIn& stand_in();
