// A wallet as the wallet application leaves it, the only one and so connected at the start.
#pragma once

#include "kit/test_folder.h"

void write_wallet(const TestFolder& folder);
