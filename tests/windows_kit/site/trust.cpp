#include "windows_kit/site/trust.h"

#include <windows.h>

#include <wincrypt.h>

namespace {

class TrustedRoots {
public:
    TrustedRoots() : m_store(CertOpenStore(CERT_STORE_PROV_SYSTEM_A, 0, 0, CERT_SYSTEM_STORE_CURRENT_USER, "Root")) {}
    TrustedRoots(const TrustedRoots&) = delete;
    TrustedRoots& operator=(const TrustedRoots&) = delete;
    ~TrustedRoots() { CertCloseStore(m_store, 0); }

    HCERTSTORE get() const { return m_store; }

private:
    HCERTSTORE m_store;
};

bool is_the_kits(PCCERT_CONTEXT certificate)
{
    char name[256] = {};
    CertGetNameStringA(certificate, CERT_NAME_SIMPLE_DISPLAY_TYPE, 0, nullptr, name, sizeof name);
    return std::string(name) == kAuthorityName;
}

}  // namespace

bool trust(const std::string& certificate)
{
    const TrustedRoots roots;
    return CertAddEncodedCertificateToStore(
               roots.get(), X509_ASN_ENCODING, reinterpret_cast<const BYTE*>(certificate.data()),
               static_cast<DWORD>(certificate.size()), CERT_STORE_ADD_NEW, nullptr) != FALSE;
}

int take_authorities_away()
{
    const TrustedRoots roots;
    int count = 0;
    PCCERT_CONTEXT certificate = CertEnumCertificatesInStore(roots.get(), nullptr);
    while (certificate != nullptr) {
        if (!is_the_kits(certificate)) {
            certificate = CertEnumCertificatesInStore(roots.get(), certificate);
            continue;
        }
        // Deleting frees it: the search begins anew. A user who says no keeps it, and is not asked twice.
        if (!CertDeleteCertificateFromStore(certificate)) break;
        ++count;
        certificate = CertEnumCertificatesInStore(roots.get(), nullptr);
    }
    return count;
}
