// The check of a recovery phrase (BIP39, English word list).
#pragma once

#include "text/secret.h"

// True for exactly twelve words of the list whose checksum holds. Blanks and tabs separate, runs of them count as one,
// and capitals are taken for small letters.
bool is_valid_phrase(const SecretText& phrase);
