#include "windows_kit/site/trust.h"

#include <windows.h>

#include <wincrypt.h>

#include <algorithm>
#include <vector>

namespace {

class TrustedRoots {
public:
    explicit TrustedRoots(LPCSTR provider = CERT_STORE_PROV_SYSTEM_A)
        : m_store(CertOpenStore(provider, 0, 0, CERT_SYSTEM_STORE_CURRENT_USER, "Root"))
    {
    }
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

// How many the user has let go.
int take_away_from(LPCSTR provider)
{
    const TrustedRoots roots(provider);
    std::vector<PCCERT_CONTEXT> found;
    for (PCCERT_CONTEXT certificate = CertEnumCertificatesInStore(roots.get(), nullptr); certificate != nullptr;
         certificate = CertEnumCertificatesInStore(roots.get(), certificate))
        if (is_the_kits(certificate)) found.push_back(CertDuplicateCertificateContext(certificate));
    int count = 0;
    for (const PCCERT_CONTEXT certificate : found)
        if (CertDeleteCertificateFromStore(certificate)) ++count;  // frees it as well
    return count;
}

}  // namespace

unsigned long trust(const std::string& certificate)
{
    const TrustedRoots roots;
    const BOOL is_added = CertAddEncodedCertificateToStore(
        roots.get(), X509_ASN_ENCODING, reinterpret_cast<const BYTE*>(certificate.data()),
        static_cast<DWORD>(certificate.size()), CERT_STORE_ADD_NEW, nullptr);
    return is_added ? 0 : GetLastError();
}

int take_authorities_away()
{
    const int count = take_away_from(CERT_STORE_PROV_SYSTEM_A);
    // Wine finds again in the registry what was deleted from the store above it. Windows has nothing left there.
    return count > 0 ? std::max(count, take_away_from(CERT_STORE_PROV_SYSTEM_REGISTRY_A)) : 0;
}
