#pragma once

#include <openssl/ssl.h>
#include <openssl/x509.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace crash_test {

/// Frees OpenSSL's objects.
struct TlsFree {
    void operator()(EVP_PKEY* key) const { EVP_PKEY_free(key); }
    void operator()(X509* certificate) const { X509_free(certificate); }
    void operator()(SSL_CTX* context) const { SSL_CTX_free(context); }
};
using TlsContext = std::unique_ptr<SSL_CTX, TlsFree>;

/// A certificate that clients must reject, as a server shows it.
struct WrongCertificate {
    const char* name;
    TlsContext context;
};

/// Signs certificates for this machine, and makes processes trust it.
class Authority {
public:
    /// Writes its own certificate to `file`.
    explicit Authority(std::filesystem::path file);

    TlsContext right() const;
    std::vector<WrongCertificate> wrongOnes() const;
    /// Makes this process trust only this authority. False if the machine does not allow it.
    [[nodiscard]] bool beTrusted() const;
    /// True if a process could trust it.
    bool canBeTrusted() const;

private:
    struct Signed {
        std::unique_ptr<EVP_PKEY, TlsFree> key;
        std::unique_ptr<X509, TlsFree> certificate;
    };
    struct Wish;

    static Signed made(const Wish& wish, const Signed* signer);
    static TlsContext shown(const Wish& wish, const Signed* signer);

    std::filesystem::path file_;
    Signed self_;
};

}  // namespace crash_test
