// The connect requests that the program has left for the wallet application, answered by a test.
#pragma once

#include "kit/test_folder.h"

#include <string>
#include <vector>

std::vector<std::string> connect_request_ids(const TestFolder& folder);

// Answers the one request there is; throws when there are more or none.
void reply_to_connect_request(const TestFolder& folder, const std::string& reply);
