#include "windows_kit/site/certificates.h"

#include <openssl/ec.h>
#include <openssl/evp.h>
#include <openssl/rand.h>
#include <openssl/x509v3.h>

#include <stdexcept>

namespace {

constexpr long kDay = 24L * 60 * 60;

struct Wanted {
    std::string name;  // of the certificate
    long from = -kDay;
    long until = kDay;
    bool is_authority = false;
    bool names_a_list = false;  // of revoked certificates, at an address where nothing listens
};

template <typename Result>
Result made(Result result)
{
    if (!result) throw std::runtime_error("libcrypto refuses to make a certificate");
    return result;
}

Key make_key()
{
    return made(Key(EVP_EC_gen("P-256")));
}

void add(X509* certificate, X509V3_CTX& context, int extension, const std::string& value)
{
    const std::unique_ptr<X509_EXTENSION, OpensslFree<X509_EXTENSION_free>> added(
        made(X509V3_EXT_conf_nid(nullptr, &context, extension, value.c_str())));
    made(X509_add_ext(certificate, added.get(), -1));
}

void set_name(X509_NAME* name, const std::string& text)
{
    const auto* bytes = reinterpret_cast<const unsigned char*>(text.c_str());
    made(X509_NAME_add_entry_by_txt(name, "CN", MBSTRING_UTF8, bytes, -1, -1, 0));
}

// Signed by `issuer`, or by its own key when that is null.
Certificate make_certificate(const Wanted& wanted, EVP_PKEY* key, const Authority* issuer)
{
    Certificate certificate = made(Certificate(X509_new()));
    X509* made_one = certificate.get();
    X509_set_version(made_one, X509_VERSION_3);
    std::uint64_t serial = 0;
    made(RAND_bytes(reinterpret_cast<unsigned char*>(&serial), sizeof serial));
    ASN1_INTEGER_set_uint64(X509_get_serialNumber(made_one), serial >> 1);
    set_name(X509_get_subject_name(made_one), wanted.name);
    X509* signer = issuer != nullptr ? issuer->certificate.get() : made_one;
    X509_set_issuer_name(made_one, X509_get_subject_name(signer));
    X509_gmtime_adj(X509_getm_notBefore(made_one), wanted.from);
    X509_gmtime_adj(X509_getm_notAfter(made_one), wanted.until);
    X509_set_pubkey(made_one, key);

    X509V3_CTX context{};
    X509V3_set_ctx(&context, signer, made_one, nullptr, nullptr, 0);
    add(made_one, context, NID_basic_constraints, wanted.is_authority ? "critical,CA:TRUE" : "critical,CA:FALSE");
    add(made_one, context, NID_key_usage, wanted.is_authority ? "critical,keyCertSign,cRLSign" : "digitalSignature");
    add(made_one, context, NID_subject_key_identifier, "hash");
    if (!wanted.is_authority) {
        add(made_one, context, NID_ext_key_usage, "serverAuth");
        add(made_one, context, NID_subject_alt_name, "DNS:" + wanted.name);
    }
    if (wanted.names_a_list) add(made_one, context, NID_crl_distribution_points, "URI:http://127.0.0.1:9/revoked.crl");
    made(X509_sign(made_one, issuer != nullptr ? issuer->key.get() : key, EVP_sha256()));
    return certificate;
}

TlsContext make_server(const Wanted& wanted, const Authority* issuer)
{
    TlsContext context = made(TlsContext(SSL_CTX_new(TLS_server_method())));
    const Key key = make_key();
    const Certificate certificate = make_certificate(wanted, key.get(), issuer);
    made(SSL_CTX_use_certificate(context.get(), certificate.get()));
    made(SSL_CTX_use_PrivateKey(context.get(), key.get()));
    return context;
}

}  // namespace

Authority make_authority(const std::string& name)
{
    Key key = make_key();
    Certificate certificate = make_certificate({name, -10 * kDay, 2 * kDay, true}, key.get(), nullptr);
    return {std::move(key), std::move(certificate)};
}

std::string der_of(const Certificate& certificate)
{
    unsigned char* bytes = nullptr;
    const int size = i2d_X509(certificate.get(), &bytes);
    std::string der(reinterpret_cast<char*>(bytes), static_cast<std::size_t>(made(size > 0) ? size : 0));
    OPENSSL_free(bytes);
    return der;
}

std::map<std::string, TlsContext> make_hosts(const Authority& authority)
{
    // Nobody is ever asked to trust this one.
    const Authority unknown = make_authority("An authority that nobody knows");
    std::map<std::string, TlsContext> hosts;
    for (const char* good : {"brasslet.test", "corvane.example"})
        hosts[good] = make_server({good}, &authority);
    hosts["wrong-name.test"] = make_server({"another.test"}, &authority);
    hosts["expired.test"] = make_server({"expired.test", -3 * kDay, -2 * kDay}, &authority);
    hosts["not-yet-valid.test"] = make_server({"not-yet-valid.test", kDay, 2 * kDay}, &authority);
    hosts["self-signed.test"] = make_server({"self-signed.test"}, nullptr);
    hosts["unknown-authority.test"] = make_server({"unknown-authority.test"}, &unknown);
    hosts["list-out-of-reach.test"] = make_server({"list-out-of-reach.test", -kDay, kDay, false, true}, &authority);
    return hosts;
}
