#include "wallet_bridge/data_directory.h"

#include "platform/environment.h"

std::string data_directory()
{
    const std::string base = local_app_data();
    return (base.empty() ? std::string(".") : base) + "\\Corvane";
}
