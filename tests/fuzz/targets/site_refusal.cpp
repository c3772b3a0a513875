// Property: 401 and 403 always give a sentence, every other status none; the first code of WordPress' that the body
// holds decides whatever else it says, and without one the message of a JSON object is given as it can be shown.
#include "site/site_reply.h"

#include "fuzz/target.h"
#include "text/json.h"

namespace {

std::string refusal(std::int32_t status, const std::string& body)
{
    HttpReply reply;
    reply.status = status;
    reply.body = body;
    return refusal_message(reply);
}

bool holds_a_code(const std::string& body)
{
    for (const char* code : {"incorrect_password", "invalid_username", "rest_not_logged_in", "rest_forbidden"})
        if (body.find(code) != std::string::npos) return true;
    return false;
}

void check(std::string_view bytes)
{
    const std::string body(bytes);
    for (const std::int32_t status : {0, 200, 302, 400, 402, 404, 500})
        require(refusal(status, body).empty(), "no other status is a refusal");

    const std::string sentence = refusal(401, body);
    require(!sentence.empty() && refusal(403, body) == sentence, "a refusal has a sentence");
    require(refusal(401, body + "incorrect_password") == "WordPress refused that application password.",
            "the password comes first");

    const std::string message = shown_text(reply_message(body));
    if (holds_a_code(body)) {
        require(refusal(401, body + R"("message")") == sentence, "a code counts more than what stands around it");
    } else if (message.empty()) {
        require(sentence == "WordPress refused that application password.", "without a message there is a sentence");
    } else {
        require(sentence == message, "the message is given as it can be shown");
        if (!holds_a_code(message))
            require(refusal(401, compact_json({{"message", message}})) == sentence, "it survives a write and a read");
    }
}

const FuzzTarget target("site_refusal", check);

}  // namespace
