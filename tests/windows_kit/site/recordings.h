// What the real WordPress has answered, to be answered again.
#pragma once

#include <string>
#include <vector>

struct Request {
    std::string line;  // "GET /wp-json/brasslet/v1/status"
    std::string body;
};

struct Recording {
    std::string state;  // of the site, in which it answers so: "bare", "plugin" or "published"
    Request request;
    std::string next_state;  // empty: stays as it is
    std::string reply;       // head and body
};

// Those in FOLDER/STATE/NAME.http: the request's first line, its body, "then" and the next state, an empty line, and
// the reply. A folder that has none makes an empty list.
std::vector<Recording> read_recordings(const std::string& folder);

// Whether `sent` is the recorded request, whatever time it tells in "dt".
bool is_same_request(const Request& sent, const Request& recorded);
