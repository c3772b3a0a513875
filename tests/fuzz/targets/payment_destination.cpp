// Property: an accepted reply pays one satoshi to the one address or script that it names, which encodes back to
// itself, and reads the same when it is written anew in the form of any paymail host; a refused one pays nobody and
// says why. Only an accepted one pays the wallet of its address, and never a wallet of another address.
#include "paymail/payment_destination.h"

#include "fuzz/target.h"
#include "text/ascii.h"
#include "text/json.h"
#include "wallet/address.h"

namespace {

constexpr char kAnyAddress[] = "1BgGZ9tcN4rm9KBzDn7KprQz87SZ26SAMH";

bool pays(const nlohmann::json& reply, const std::string& address)
{
    const auto [outputs, error] = read_payment_destination(compact_json(reply));
    return error.empty() && outputs.size() == 1 && outputs[0].address == address && outputs[0].satoshis == 1;
}

// The text of the reply that says who is paid.
std::string payee(const nlohmann::json& reply)
{
    const nlohmann::json outputs = reply.value("outputs", nlohmann::json());
    if (outputs.is_array()) return text_member(outputs.at(0), "script");
    return text_member(reply, reply.contains("output") ? "output" : "address");
}

void check(std::string_view bytes)
{
    const std::string body(bytes);
    const auto [outputs, error] = read_payment_destination(body);
    require(payee_of(body, kAnyAddress) != Payee::wallet || outputs.at(0).address == kAnyAddress,
            "who is paid is read");
    if (!error.empty()) {
        require(outputs.empty() && error.starts_with("that paymail host "), "a refused reply pays nobody and says why");
        return;
    }
    require(outputs.size() == 1 && outputs[0].satoshis == 1, "one satoshi goes to one address");
    const std::string& address = outputs[0].address;
    const auto hash = hash160_from_address(address);
    require(hash && address_from_hash160(*hash) == address, "the address encodes back to itself");

    const std::string script = "76a914" + hex_encode(*hash) + "88ac";
    const std::string named = payee(parse_json(bytes));
    require(named == address || lower_ascii(named) == script, "the address or its script stands in the reply");
    require(pays({{"outputs", {{{"satoshis", 1}, {"script", script}}}}}, address), "a list of outputs reads the same");
    require(pays({{"output", script}}, address), "one script reads the same");
    require(pays({{"address", address}}, address), "one address reads the same");
}

const FuzzTarget target("payment_destination", check);

}  // namespace
