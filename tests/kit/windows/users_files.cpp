#include "kit/windows/users_files.h"

#include "kit/wallet_files.h"
#include "platform/text_conversion.h"
#include "settings/settings_store.h"

#include <gtest/gtest.h>

namespace {

constexpr char kWalletId[] = "1700000000000";

// The phrase of BIP39's first English vector.
constexpr char kFirstPhrase[] =
    "abandon abandon abandon abandon abandon abandon abandon abandon abandon abandon abandon about";

}  // namespace

void save(const Saved& settings, const std::string& name)
{
    SiteSettings kept;
    kept.site = settings.site;
    kept.user = settings.user;
    kept.pass = StoredPassword(SecretText(settings.password));
    ASSERT_EQ(save_settings(kept, name), SettingsNotice::none);
}

Saved saved()
{
    SiteSettings kept;
    static_cast<void>(load_settings(kept));  // a test may have damaged them
    return {kept.site, kept.user, kept.pass.in_clear().text()};
}

void write_wallet(const TestFolder& folder)
{
    folder.write("wallets.json", pretty_json({{"wallets", {{{"id", kWalletId}, {"name", "Wallet 1"}}}}}));
    folder.write(std::string("wallets/") + kWalletId + "/wallet.json",
                 pretty_json({{"version", 2}, {"mnemonic", kFirstPhrase}, {"recv", {0, 0, 0, 0, 0, 0}}}));
}

void write_one_wallet(const TestFolder& folder, const nlohmann::json& wallet)
{
    folder.write("wallets.json", R"({"wallets":[{"id":"1"}]})");
    folder.write("wallets/1/wallet.json", wallet.dump());
}

void write_two_wallets(const TestFolder& folder)
{
    folder.write("wallets.json", R"({"wallets":[{"id":"1","name":"Savings"},{"id":"2","name":"Shop"}]})");
    folder.write("wallets/1/wallet.json", phrase_wallet().dump());
    folder.write("wallets/2/wallet.json", phrase_wallet({{"recv", {0, 5, 0, 0, 0, 0}}, {"show", 5}}).dump());
}

std::size_t bind_records(const TestFolder& folder)
{
    WIN32_FIND_DATAW found{};
    HANDLE search = FindFirstFileW(widen(folder.data() + "\\binds\\*.json").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return 0;
    std::size_t count = 1;
    while (FindNextFileW(search, &found))
        ++count;
    FindClose(search);
    return count;
}

UniqueHandle held_record(const TestFolder& folder)
{
    const std::wstring binds = widen(folder.data() + "\\binds\\");
    WIN32_FIND_DATAW found{};
    FindClose(FindFirstFileW((binds + L"*.json").c_str(), &found));
    return UniqueHandle(CreateFileW((binds + found.cFileName).c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                    OPEN_EXISTING, 0, nullptr));
}
