// A site that publishes the bound wallet as alice@brasslet.test, as the plugin does.
#pragma once

#include "kit/bound_wallet.h"
#include "kit/wire/net_test.h"

#include <string>

inline constexpr char kDiscoveryPath[] = "GET /.well-known/bsvalias";
inline constexpr char kPkiPath[] = "GET /id/alice@brasslet.test";
inline constexpr char kPayPath[] = "POST /pay/alice@brasslet.test";
inline constexpr char kKeptNames[] = "payname/payname.json";

std::string discovery_document(const std::string& host);
std::string upper_ascii(std::string text);
std::string output_paying(const std::string& address);  // one element of a reply's "outputs"

class PayingSite : public NetTest {
protected:
    PayingSite();

    std::string kept_names() const { return wallet.folder.read(kKeptNames); }

    // What the wallet application may do meanwhile: at its `reading`th reading, and only then, the wallet file holds
    // `text`.
    void wallet_file_changes(int reading, const std::string& text) const;

    BoundWallet wallet;
};
