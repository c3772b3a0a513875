// A site that answers without a network: it stands in for the program's one HTTPS exchange, chosen by the linker.
#pragma once

#include "net/http_exchange.h"

#include <functional>
#include <vector>

struct AnsweringSite {
    std::function<std::string(const HttpRequest& request)> body_for;  // of a reply with status 200
    std::vector<HttpRequest> requests;                                // that arrived
};

AnsweringSite& answering_site();
