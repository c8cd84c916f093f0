#include "certificates.h"

#include <openssl/pem.h>
#include <openssl/x509v3.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <stdexcept>
#include <utility>

namespace crash_test {
namespace {

/// The file in which libcurl looks for authorities on this kind of machine.
constexpr const char* kTrusted = "/etc/ssl/certs/ca-certificates.crt";
constexpr const char* kHere = "IP:127.0.0.1";
constexpr long kHour = 3600;

void require(bool fine, const char* what) {
    if (!fine) {
        throw std::runtime_error(std::string("certificate: ") + what);
    }
}

void extend(X509* certificate, int kind, const char* value) {
    X509_EXTENSION* extension = X509V3_EXT_conf_nid(nullptr, nullptr, kind, value);
    require(extension != nullptr && X509_add_ext(certificate, extension, -1) == 1, value);
    X509_EXTENSION_free(extension);
}

}  // namespace

struct Authority::Wish {
    const char* name = "127.0.0.1";
    const char* address = kHere;
    long from = -kHour;
    long until = kHour;
    bool canSign = false;
};

Authority::Signed Authority::made(const Wish& wish, const Signed* signer) {
    Signed made{std::unique_ptr<EVP_PKEY, TlsFree>(EVP_EC_gen("P-256")), std::unique_ptr<X509, TlsFree>(X509_new())};
    X509* certificate = made.certificate.get();
    static long number = 0;
    X509_set_version(certificate, X509_VERSION_3);
    ASN1_INTEGER_set(X509_get_serialNumber(certificate), ++number);
    X509_gmtime_adj(X509_getm_notBefore(certificate), wish.from);
    X509_gmtime_adj(X509_getm_notAfter(certificate), wish.until);
    X509_set_pubkey(certificate, made.key.get());
    X509_NAME_add_entry_by_txt(X509_get_subject_name(certificate), "CN", MBSTRING_ASC,
                               reinterpret_cast<const unsigned char*>(wish.name), -1, -1, 0);
    const Signed& by = signer == nullptr ? made : *signer;
    X509_set_issuer_name(certificate, X509_get_subject_name(by.certificate.get()));
    if (wish.canSign) {
        extend(certificate, NID_basic_constraints, "critical,CA:TRUE");
    } else {
        extend(certificate, NID_subject_alt_name, wish.address);
    }
    require(X509_sign(certificate, by.key.get(), EVP_sha256()) > 0, "signing");
    return made;
}

TlsContext Authority::shown(const Wish& wish, const Signed* signer) {
    const Signed server = made(wish, signer);
    TlsContext context(SSL_CTX_new(TLS_server_method()));
    require(SSL_CTX_use_certificate(context.get(), server.certificate.get()) == 1 &&
                SSL_CTX_use_PrivateKey(context.get(), server.key.get()) == 1,
            "use");
    return context;
}

Authority::Authority(std::filesystem::path file)
    : file_(std::move(file)), self_(made({.name = "Authority", .canSign = true}, nullptr)) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> stream(std::fopen(file_.c_str(), "w"), std::fclose);
    require(stream && PEM_write_X509(stream.get(), self_.certificate.get()) == 1, file_.c_str());
}

TlsContext Authority::right() const { return shown({}, &self_); }

std::vector<WrongCertificate> Authority::wrongOnes() const {
    const Signed stranger = made({.name = "Authority", .canSign = true}, nullptr);
    std::vector<WrongCertificate> wrong;
    wrong.push_back({"signed by itself", shown({}, nullptr)});
    wrong.push_back({"signed by a stranger of the same name", shown({}, &stranger)});
    wrong.push_back({"expired", shown({.from = -2 * kHour, .until = -kHour}, &self_)});
    wrong.push_back({"not valid yet", shown({.from = kHour, .until = 2 * kHour}, &self_)});
    wrong.push_back({"for another address", shown({.address = "IP:127.0.0.2"}, &self_)});
    wrong.push_back({"for another name", shown({.address = "DNS:127.0.0.1.example"}, &self_)});
    return wrong;
}

bool Authority::beTrusted() const {
    return (::unshare(CLONE_NEWNS) == 0 || ::unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0) &&
           ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
           ::mount(file_.c_str(), kTrusted, nullptr, MS_BIND, nullptr) == 0;
}

bool Authority::canBeTrusted() const {
    const pid_t process = ::fork();
    if (process == 0) {
        ::_exit(beTrusted() ? 0 : 1);
    }
    int status = 0;
    return ::waitpid(process, &status, 0) == process && status == 0;
}

}  // namespace crash_test
