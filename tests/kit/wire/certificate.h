// Certificates for the test server, made when they are needed.
#pragma once

#include <openssl/ssl.h>

#include <string>
#include <vector>

enum class Signer {
    test_authority,  // the one that this machine trusts
    nobody,          // signed by its own key
};

// A TLS context of a server that holds a fresh key and a certificate for `names`. Owned by the caller.
SSL_CTX* tls_context(const std::vector<std::string>& names, Signer signer);
