// Answers the connect requests of other programs, as the wallet application's user would.
#pragma once

#include <optional>
#include <string>

// The text of the reply that an ANSWER of the command line stands for; nothing when it stands for none.
std::optional<std::string> reply_for(const std::wstring& answer);

// Writes `reply` to every request that has no reply yet. False when a request is not as both programs have agreed.
bool answer_requests(const std::wstring& data_directory, const std::string& reply);
