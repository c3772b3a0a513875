#include "paymail/payment_destination.h"

#include "text/ascii.h"
#include "text/json.h"
#include "wallet/address.h"

#include <algorithm>

namespace {

using nlohmann::json;

constexpr std::size_t kMostOutputs = 20;
constexpr std::int64_t kAskedFor = 1;  // satoshis
constexpr char kTooManyOutputs[] = "that paymail host asked for too many outputs";
constexpr char kNoAddress[] = "that paymail host did not return a payment address";
constexpr char kOtherAmount[] = "that paymail host returned a different amount";
constexpr char kTwoAddresses[] = "that paymail host returned two different addresses";

// The address of a pay-to-public-key-hash script; empty for every other script and for a value that is not a string.
std::string script_address(const json& script)
{
    if (!script.is_string()) return {};
    const std::vector<std::uint8_t> bytes = hex_decode(script.get_ref<const std::string&>());
    if (bytes.size() != 25) return {};
    const bool is_p2pkh =
        bytes[0] == 0x76 && bytes[1] == 0xa9 && bytes[2] == 0x14 && bytes[23] == 0x88 && bytes[24] == 0xac;
    if (!is_p2pkh) return {};
    Hash160 hash;
    std::copy_n(bytes.begin() + 3, hash.size(), hash.begin());
    return address_from_hash160(hash);
}

// True for an integer from 1 to `most`; compared as JSON numbers, so that none overflows.
bool read_satoshis(const json& output, std::int64_t most, std::int64_t& satoshis)
{
    const auto member = output.find("satoshis");
    if (member == output.end() || !member->is_number_integer()) return false;
    if (*member < 1 || *member > most) return false;
    satoshis = member->get<std::int64_t>();
    return true;
}

// The error; empty on success.
std::string read_outputs(const json& list, std::vector<PaymentOutput>& outputs)
{
    if (list.size() > kMostOutputs) return kTooManyOutputs;
    if (!std::all_of(list.begin(), list.end(), [](const json& output) { return output.is_object(); }))
        return kNoAddress;
    std::int64_t total = 0;
    for (const json& output : list) {
        PaymentOutput made;
        if (!read_satoshis(output, kAskedFor - total, made.satoshis)) return kOtherAmount;
        total += made.satoshis;
        const auto script = output.find("script");
        made.address = script == output.end() ? std::string() : script_address(*script);
        if (made.address.empty()) return kNoAddress;
        outputs.push_back(made);
    }
    return total == kAskedFor ? std::string() : kOtherAmount;
}

// The replies of basic address resolution: one script, one address, or both, without an amount. Some payers read the
// one and some the other, so both must say the same.
std::string read_single(const json& reply, std::vector<PaymentOutput>& outputs)
{
    const auto script = reply.find("output");
    const auto text = reply.find("address");
    std::string address;
    if (script != reply.end()) {
        address = script_address(*script);
    } else if (const auto hash = hash160_from_address(text_member(reply, "address"))) {
        address = address_from_hash160(*hash);
    }
    if (address.empty()) return kNoAddress;
    if (text != reply.end() && text->is_string() && *text != address) return kTwoAddresses;
    outputs.push_back({address, kAskedFor});
    return {};
}

}  // namespace

PaymentDestination read_payment_destination(const std::string& body)
{
    const json reply = parse_json(body);
    if (!reply.is_object()) return {{}, kNoAddress};
    PaymentDestination destination;
    const auto list = reply.find("outputs");
    destination.error = list != reply.end() && list->is_array() ? read_outputs(*list, destination.outputs)
                                                                : read_single(reply, destination.outputs);
    if (!destination.error.empty()) destination.outputs.clear();
    return destination;
}

namespace {

bool is_other_address(const std::string& text, const std::string& address)
{
    return text != address && hash160_from_address(text);
}

// Payers take the script of a reply as it is, so that one of any form counts.
bool is_other_script(const json& output, const char* member, const std::string& address)
{
    return !hex_decode(text_member(output, member)).empty() && script_address(output[member]) != address;
}

bool has_other_output(const json& reply, const std::string& address)
{
    if (is_other_script(reply, "output", address)) return true;
    const auto list = reply.find("outputs");
    return list != reply.end() && list->is_array() &&
           std::any_of(list->begin(), list->end(),
                       [&address](const json& output) { return is_other_script(output, "script", address); });
}

}  // namespace

Payee payee_of(const std::string& body, const std::string& address)
{
    const json reply = parse_json(body);
    if (!reply.is_object()) return Payee::unclear;
    if (is_other_address(text_member(reply, "address"), address)) return Payee::other_address;
    if (has_other_output(reply, address)) return Payee::other_output;
    const PaymentDestination destination = read_payment_destination(body);
    const bool is_wallet = destination.outputs.size() == 1 && destination.outputs.front().address == address;
    return is_wallet ? Payee::wallet : Payee::unclear;
}
