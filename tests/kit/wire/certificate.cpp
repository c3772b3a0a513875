#include "kit/wire/certificate.h"

#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/x509.h>
#include <openssl/x509v3.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <stdexcept>

namespace {

struct Free {
    void operator()(EVP_PKEY* key) const { EVP_PKEY_free(key); }
    void operator()(X509* certificate) const { X509_free(certificate); }
    void operator()(X509_EXTENSION* extension) const { X509_EXTENSION_free(extension); }
    void operator()(std::FILE* file) const { static_cast<void>(std::fclose(file)); }
};
using Key = std::unique_ptr<EVP_PKEY, Free>;
using Certificate = std::unique_ptr<X509, Free>;
using File = std::unique_ptr<std::FILE, Free>;

File authority_file(const char* name)
{
    const char* folder = std::getenv("BRASSLET_TEST_AUTHORITY");
    if (folder == nullptr) throw std::runtime_error("run this program through tests/kit/private_net");
    File file(std::fopen((std::string(folder) + "/" + name).c_str(), "r"));
    if (!file) throw std::runtime_error(std::string("the test authority lacks ") + name);
    return file;
}

void add_names(X509* certificate, const std::vector<std::string>& names)
{
    std::string value;
    for (const std::string& name : names)
        value += (value.empty() ? "DNS:" : ",DNS:") + name;
    const std::unique_ptr<X509_EXTENSION, Free> extension(
        X509V3_EXT_conf_nid(nullptr, nullptr, NID_subject_alt_name, value.c_str()));
    X509_add_ext(certificate, extension.get(), -1);
}

void add_common_name(X509_NAME* name, const std::string& text)
{
    X509_NAME_add_entry_by_txt(name, "CN", MBSTRING_ASC, reinterpret_cast<const unsigned char*>(text.c_str()), -1, -1,
                               0);
}

Certificate certificate_for(EVP_PKEY* key, const std::vector<std::string>& names, Signer signer)
{
    Certificate certificate(X509_new());
    X509_set_version(certificate.get(), X509_VERSION_3);
    ASN1_INTEGER_set(X509_get_serialNumber(certificate.get()), 2);
    X509_gmtime_adj(X509_getm_notBefore(certificate.get()), -3600);
    X509_gmtime_adj(X509_getm_notAfter(certificate.get()), 24L * 3600);
    X509_set_pubkey(certificate.get(), key);
    add_common_name(X509_get_subject_name(certificate.get()), names.front());
    add_names(certificate.get(), names);
    if (signer == Signer::nobody) {
        X509_set_issuer_name(certificate.get(), X509_get_subject_name(certificate.get()));
        X509_sign(certificate.get(), key, EVP_sha256());
        return certificate;
    }
    const Certificate authority(PEM_read_X509(authority_file("authority.pem").get(), nullptr, nullptr, nullptr));
    const Key authority_key(PEM_read_PrivateKey(authority_file("authority.key").get(), nullptr, nullptr, nullptr));
    X509_set_issuer_name(certificate.get(), X509_get_subject_name(authority.get()));
    X509_sign(certificate.get(), authority_key.get(), EVP_sha256());
    return certificate;
}

}  // namespace

SSL_CTX* tls_context(const std::vector<std::string>& names, Signer signer)
{
    const Key key(EVP_EC_gen("P-256"));
    const Certificate certificate = certificate_for(key.get(), names, signer);
    SSL_CTX* context = SSL_CTX_new(TLS_server_method());
    if (SSL_CTX_use_certificate(context, certificate.get()) != 1 || SSL_CTX_use_PrivateKey(context, key.get()) != 1)
        throw std::runtime_error("the test server has no certificate");
    return context;
}
