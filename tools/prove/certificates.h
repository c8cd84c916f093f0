#pragma once

#include <openssl/ssl.h>
#include <openssl/x509.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace prove {

/// Frees what OpenSSL has made.
struct TlsFree {
    void operator()(EVP_PKEY* key) const { EVP_PKEY_free(key); }
    void operator()(X509* certificate) const { X509_free(certificate); }
    void operator()(SSL_CTX* context) const { SSL_CTX_free(context); }
};
using TlsContext = std::unique_ptr<SSL_CTX, TlsFree>;

/// A certificate that must not be believed, as a server shows it.
struct WrongCertificate {
    const char* name;
    TlsContext context;
};

/// Signs for this machine, and makes processes believe it.
class Authority {
public:
    /// Its own certificate lies at `file` afterwards.
    explicit Authority(std::filesystem::path file);

    TlsContext right() const;
    std::vector<WrongCertificate> wrongOnes() const;
    /// From now on this process believes this one and nobody else. False: the machine does not allow it.
    [[nodiscard]] bool beTrusted() const;
    /// Whether a process could.
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

}  // namespace prove
