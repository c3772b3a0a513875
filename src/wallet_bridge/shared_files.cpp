#include "wallet_bridge/shared_files.h"

#include "platform/environment.h"
#include "text/clock.h"

std::string data_directory()
{
    const std::string base = local_app_data();
    return (base.empty() ? std::string(".") : base) + "\\Corvane";
}

std::string wallet_list_path()
{
    return data_directory() + "/wallets.json";
}

std::string wallet_list_lock_path()
{
    return data_directory() + "/wallets.lock";
}

std::string wallet_file_path(const std::string& wallet_id)
{
    return wallet_id.empty() ? std::string() : data_directory() + "/wallets/" + wallet_id + "/wallet.json";
}

std::string older_wallet_path()
{
    return data_directory() + "/corvane_vaultry.json";
}

std::string moving_mark_path()
{
    return older_wallet_path() + ".moving";
}

std::string seal_path(const std::string& wallet_file)
{
    return wallet_file + ".seal";
}

std::string bind_record_path_for(const std::string& bind_key)
{
    return data_directory() + "/binds/" + bind_key + ".json";
}

std::string connect_request_path(const std::string& request_id)
{
    return data_directory() + "/connect/" + request_id + ".req.json";
}

std::string connect_reply_path(const std::string& request_id)
{
    return data_directory() + "/connect/" + request_id + ".rep.json";
}

std::string house_labels_path()
{
    return data_directory() + "/corvane_paymail.json";
}

std::string spent_snapshot_path(const std::string& spent_snapshot_key)
{
    return data_directory() + "/ord_snap/" + spent_snapshot_key + "_spent.json";
}

std::string settings_path()
{
    return data_directory() + "/payname/ui.json";
}

std::string kept_names_path()
{
    return data_directory() + "/payname/payname.json";
}

std::string plugin_package_path()
{
    return data_directory() + "/payname/brasslet.zip";
}

std::string damaged_path(const std::string& path)
{
    return path + ".damaged-" + std::to_string(milliseconds_since_epoch());
}
