#include <openssl/pem.h>
#include <openssl/x509v3.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/wait.h>

#include <cstdio>
#include <iostream>

#include "adapters/http/http_fixture.h"

namespace orv {
namespace {

/// The file in which libcurl looks for authorities on this kind of machine.
constexpr const char* kTrusted = "/etc/ssl/certs/ca-certificates.crt";
constexpr long kHour = 3600;
constexpr int kCannotTrust = 77;

struct OpenSslFree {
    void operator()(EVP_PKEY* key) const { EVP_PKEY_free(key); }
    void operator()(X509* certificate) const { X509_free(certificate); }
};

struct Signed {
    std::unique_ptr<EVP_PKEY, OpenSslFree> key{EVP_EC_gen("P-256")};
    std::unique_ptr<X509, OpenSslFree> certificate{X509_new()};
};

struct Wish {
    const char* address = "IP:127.0.0.1";
    long from = -kHour, until = kHour;
    bool isAuthority = false;
};

/// A null signer makes a certificate that is signed by itself.
Signed made(const Wish& wish, const Signed* signer) {
    Signed result;
    X509* certificate = result.certificate.get();
    static long number = 0;
    X509_set_version(certificate, X509_VERSION_3);
    ASN1_INTEGER_set(X509_get_serialNumber(certificate), ++number);
    X509_gmtime_adj(X509_getm_notBefore(certificate), wish.from);
    X509_gmtime_adj(X509_getm_notAfter(certificate), wish.until);
    X509_set_pubkey(certificate, result.key.get());
    const auto* name = reinterpret_cast<const unsigned char*>(wish.isAuthority ? "Authority" : "127.0.0.1");
    X509_NAME_add_entry_by_txt(X509_get_subject_name(certificate), "CN", MBSTRING_ASC, name, -1, -1, 0);
    const Signed& by = signer == nullptr ? result : *signer;
    X509_set_issuer_name(certificate, X509_get_subject_name(by.certificate.get()));
    X509_EXTENSION* extension = wish.isAuthority
                                    ? X509V3_EXT_conf_nid(nullptr, nullptr, NID_basic_constraints, "critical,CA:TRUE")
                                    : X509V3_EXT_conf_nid(nullptr, nullptr, NID_subject_alt_name, wish.address);
    X509_add_ext(certificate, extension, -1);
    X509_EXTENSION_free(extension);
    X509_sign(certificate, by.key.get(), EVP_sha256());
    return result;
}

/// Makes this process trust only `authority`. False if the machine does not allow it.
bool trustOnly(const Signed& authority, const std::string& file) {
    std::FILE* stream = std::fopen(file.c_str(), "w");
    PEM_write_X509(stream, authority.certificate.get());
    std::fclose(stream);
    return (::unshare(CLONE_NEWNS) == 0 || ::unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0) &&
           ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
           ::mount(file.c_str(), kTrusted, nullptr, MS_BIND, nullptr) == 0;
}

/// Returns the failure of a request to a server with this certificate, and whether it received the request.
std::pair<std::int32_t, bool> outcomeWith(const Signed& shown) {
    httplib::SSLServer server(shown.certificate.get(), shown.key.get());
    std::atomic<bool> asked{false};
    server.Get("/", [&](const httplib::Request&, httplib::Response&) { asked = true; });
    const std::string url = "https://127.0.0.1:" + std::to_string(server.bind_to_any_port("127.0.0.1")) + "/";
    std::thread thread([&] { server.listen_after_bind(); });
    const std::int32_t failure = raisedBy([&] { get(url); }).number();
    while (!server.is_running()) {
        std::this_thread::yield();
    }
    server.stop();
    thread.join();
    return {failure, asked};
}

/// Runs in a process of its own, because it changes the trusted authorities. Returns the exit status.
int wrongOnes(const std::string& file) {
    const Signed authority = made({.isAuthority = true}, nullptr);
    const Signed stranger = made({.isAuthority = true}, nullptr);
    if (!trustOnly(authority, file)) {
        return kCannotTrust;
    }
    struct Case {
        const char* name;
        Signed shown;
        std::pair<std::int32_t, bool> expected{24011, false};
    };
    const Case cases[] = {
        {"right", made({}, &authority), {0, true}},
        {"signed by itself", made({}, nullptr)},
        {"signed by a stranger of the same name", made({}, &stranger)},
        {"expired", made({.from = -2 * kHour, .until = -kHour}, &authority)},
        {"not valid yet", made({.from = kHour, .until = 2 * kHour}, &authority)},
        {"for another address", made({.address = "IP:127.0.0.2"}, &authority)},
        {"for another name", made({.address = "DNS:127.0.0.1.example"}, &authority)},
    };
    int wrong = 0;
    for (const Case& row : cases) {
        if (const auto outcome = outcomeWith(row.shown); outcome != row.expected) {
            std::cerr << row.name << ": failure " << outcome.first << (outcome.second ? ", received" : "") << std::endl;
            ++wrong;
        }
    }
    return wrong;
}

TEST(Certificates, NothingIsSentToAServerWithAWrongOne) {
    const TempFolder folder;
    const pid_t process = ::fork();
    if (process == 0) {
        ::_exit(wrongOnes(folder.file("authority.pem")));
    }
    int status = 0;
    ASSERT_EQ(::waitpid(process, &status, 0), process);
    ASSERT_TRUE(WIFEXITED(status));
    if (WEXITSTATUS(status) == kCannotTrust) {
        GTEST_SKIP() << "this machine does not let a process see other authorities (mount)";
    }
    EXPECT_EQ(WEXITSTATUS(status), 0) << "the wrong ones are listed above";
}

}  // namespace
}  // namespace orv
