// One HTTPS exchange. This is the only place that owns a curl handle; what the program's requests differ in is said in
// an HttpRequest.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

struct HttpReply {
    std::int32_t status = 0;  // of the last response received; 0 when there was none
    std::string body;         // as received
    std::string error;        // empty on success
};
