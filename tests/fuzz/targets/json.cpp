// Property: a document that is accepted survives a write and a read, in the exact form down to the digits of its
// numbers; both forms accept the same texts, and what follows the first value makes no difference to it.
#include "text/json.h"

#include "fuzz/target.h"

namespace {

using nlohmann::json;

void check(std::string_view text)
{
    const json document = parse_json(text);
    const json exact = parse_exact_json(text);
    require(document.is_discarded() == exact.is_discarded(), "both forms accept the same texts");
    if (document.is_discarded()) {
        require(text_member(document, "a").empty(), "what is no document has no member");
        return;
    }
    require(parse_json(pretty_json(document)) == document, "a document survives a write and a read");
    require(parse_json(compact_json(document)) == document, "a document survives a compact write and a read");
    const std::string written = pretty_exact_json(exact);
    require(parse_exact_json(written) == exact, "the digits survive a write and a read");
    require(parse_json(written) == document, "the exact form says the same");
    require(pretty_exact_json(parse_exact_json(written)) == written, "a second write is the first");

    if (!document.is_structured()) return;
    require(parse_first_exact_json(text) == exact, "the first value of a document is the document");
    for (const char* behind : {"]", "}", "\"", "7", "[[", "\xff"})
        require(parse_first_exact_json(std::string(text) + behind) == exact, "what follows makes no difference");
}

const FuzzTarget target("json", check);

}  // namespace
