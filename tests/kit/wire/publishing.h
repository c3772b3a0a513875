// Publishes alice on a site that takes the name and pays the bound wallet.
#pragma once

#include "flows/publish.h"
#include "kit/stand_in/stand_in.h"
#include "kit/wire/owned_site.h"
#include "kit/wire/paying_site.h"

#include <string>

inline constexpr char kNamePath[] = "POST /wp-json/brasslet/v1/name";
inline constexpr char kKept[] = "Vaultry kept alice@brasslet.test.";

class Publishing : public PayingSite {
protected:
    Publishing()
    {
        answer(kStatusPath, kCurrentPlugin);
        answer(kNamePath, R"({"ok":true,"host":"brasslet.test","aliases":["alice"]})");
    }
    void expect_sentence(const std::string& sentence)
    {
        EXPECT_EQ(publish_sentence(settings), sentence);
        const bool is_kept = sentence.starts_with("Vaultry kept ");
        EXPECT_EQ(kept_names().empty(), !is_kept);
        EXPECT_EQ(stand_in().wallet_app_notices, is_kept ? 1 : 0);
    }

    SiteSettings settings = owners_settings();
};
