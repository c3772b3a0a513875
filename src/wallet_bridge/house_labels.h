// The labels under the house domain that the wallets on this PC hold: "corvane_paymail.json", which the wallet
// application keeps too. What another program has changed in the file every operation sees; members that are not named
// here are kept. Any thread: the operations take turns. A public key is compared without regard to case.
#pragma once

#include <string>
#include <string_view>

inline constexpr char kHouseLabelsUnwritable[] = "could not write paymail registry";
inline constexpr char kHouseLabelsUnreadable[] = "could not read paymail registry";

// Base58Check, or empty.
struct HouseAddresses {
    std::string payment;
    std::string ordinals;
};

// A name as stored elsewhere, perhaps a whole paymail: leading "@", "$" and blanks, trailing blanks and line ends, and
// everything from the first "@" on are dropped.
std::string bare_label(std::string_view name);

// The label that a typed name stands for: its bare label in lower case, of which a to z, 0 to 9, "-", "." and "_" stay.
std::string house_label(std::string_view name);

// The label of the identity: the one that this PC calls its own, else its first in byte-wise order; empty when it has
// none.
std::string house_label_of(const std::string& public_key);

// Takes the label of `name` for the identity, or renews what it holds, and calls it this PC's own. Empty on success,
// else the message: a label that another key holds is refused and stays untouched, and so is a further label beyond the
// identity's quota. While the file is there but cannot be read nobody knows whose the label is, and nothing is
// taken. An empty address leaves that of the row as it is.
[[nodiscard]] std::string register_house_label(std::string_view name, const std::string& public_key,
                                               const HouseAddresses& addresses);

// Records the wallet's picture for the identity and its labels; an empty one removes the record. Empty on success, else
// the message.
[[nodiscard]] std::string set_house_avatar(const std::string& public_key, const std::string& picture);

// Records the ordinals address with the identity's labels.
void set_house_ord_address(const std::string& public_key, const std::string& ordinals_address);
