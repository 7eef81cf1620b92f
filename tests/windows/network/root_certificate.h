// A root certificate that the system trusts as long as the object lives.
#pragma once

#include <windows.h>

#include <wincrypt.h>

#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace pavane_test {

class RootCertificate {
public:
    // `file` holds the certificate in DER.
    explicit RootCertificate(const std::string& file) {
        std::ifstream stream(file, std::ios::binary);
        bytes.assign(std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>());
        isTrusted = Store([this](HCERTSTORE store) {
            return CertAddEncodedCertificateToStore(store, X509_ASN_ENCODING, Data(), Size(),
                                                    CERT_STORE_ADD_REPLACE_EXISTING, nullptr) != FALSE;
        });
    }
    RootCertificate(const RootCertificate&) = delete;
    RootCertificate& operator=(const RootCertificate&) = delete;
    ~RootCertificate() {
        if (!isTrusted) return;
        const PCCERT_CONTEXT wanted = CertCreateCertificateContext(X509_ASN_ENCODING, Data(), Size());
        Store([wanted](HCERTSTORE store) {
            const PCCERT_CONTEXT found =
                CertFindCertificateInStore(store, X509_ASN_ENCODING, 0, CERT_FIND_EXISTING, wanted, nullptr);
            return found && CertDeleteCertificateFromStore(found);
        });
        CertFreeCertificateContext(wanted);
    }

    bool IsTrusted() const { return isTrusted; }

private:
    const BYTE* Data() const { return reinterpret_cast<const BYTE*>(bytes.data()); }
    DWORD Size() const { return static_cast<DWORD>(bytes.size()); }
    // A change counts for others when the store has closed.
    template <class Change>
    static bool Store(Change change) {
        const HCERTSTORE store =
            CertOpenStore(CERT_STORE_PROV_SYSTEM_W, 0, 0, CERT_SYSTEM_STORE_LOCAL_MACHINE, L"Root");
        const bool isDone = store && change(store);
        return CertCloseStore(store, 0) && isDone;
    }

    std::vector<char> bytes;
    bool isTrusted = false;
};

} // namespace pavane_test
