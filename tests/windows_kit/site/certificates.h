// The authority of the kit's site and the certificates of its hosts, made at every start. Their keys live in the memory
// of this process and nowhere else.
#pragma once

#include <openssl/ssl.h>

#include <map>
#include <memory>
#include <string>

template <auto Free>
struct OpensslFree {
    template <typename Object>
    void operator()(Object* object) const
    {
        Free(object);
    }
};

using Key = std::unique_ptr<EVP_PKEY, OpensslFree<EVP_PKEY_free>>;
using Certificate = std::unique_ptr<X509, OpensslFree<X509_free>>;
using TlsContext = std::unique_ptr<SSL_CTX, OpensslFree<SSL_CTX_free>>;

struct Authority {
    Key key;
    Certificate certificate;
};

Authority make_authority(const std::string& name);

std::string der_of(const Certificate& certificate);

// A server for each host of the kit. Besides the site and the maker's page, whose certificates are good, there is one
// host for every fault that a certificate may have; the host's name says which.
std::map<std::string, TlsContext> make_hosts(const Authority& authority);
