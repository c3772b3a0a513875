// Verifies names on a site that pays the bound wallet.
#pragma once

#include "kit/stand_in/stand_in.h"
#include "kit/wire/paying_site.h"
#include "paymail/verification.h"

#include <string>

inline constexpr char kName[] = "alice@brasslet.test";

class Verifying : public PayingSite {
protected:
    void expect_kept(const std::string& name = kName)
    {
        const Verification verification = verify_and_keep(name, {wallet.key, wallet.address});
        EXPECT_TRUE(verification.is_kept);
        EXPECT_EQ(verification.message, "");
        EXPECT_THAT(kept_names(), testing::HasSubstr("\"alice@brasslet.test\""));
    }
    void expect_refused(const std::string& message, const std::string& name = kName)
    {
        const std::string names = kept_names();
        const Verification verification = verify_and_keep(name, {wallet.key, wallet.address});
        EXPECT_FALSE(verification.is_kept);
        EXPECT_EQ(verification.message, message);
        EXPECT_EQ(kept_names(), names);
    }
    void srv_target(const std::string& target) { stand_in().srv_records = {{kDnsTypeSrv, target, 443, 10}}; }
};
