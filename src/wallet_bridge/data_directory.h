// The folder that this program and the wallet application share.
#pragma once

#include <string>

// The local application-data folder (or "." when there is none) followed by "\Corvane", computed afresh on every use.
// Paths inside it are made by appending literals that begin with "/": Windows takes both separators.
std::string data_directory();
