#include "adapters/http/curl_session.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <memory>
#include <string_view>

#include "adapters/http/curl_library.h"
#include "adapters/words/printable.h"
#include "platform/ascii.h"
#include "platform/run_time_error.h"
#include "platform/scope.h"
#include "platform/waiting.h"

namespace orv {
namespace {

constexpr long kConnectSeconds = 30;

struct FailureText {
    CURLcode code;
    Failure number;
    std::string_view text;
};

constexpr auto kFailures = std::to_array<FailureText>({
    {CURLE_OPERATION_TIMEDOUT, Failure::TimedOut, "サーバーから時間内に応答がありません。"},
    {CURLE_COULDNT_RESOLVE_HOST, Failure::ConnectionFailed, "サーバーの名前が見つかりません。"},
    {CURLE_COULDNT_CONNECT, Failure::ConnectionFailed, "サーバーに接続できません。"},
    {CURLE_URL_MALFORMAT, Failure::ConnectionFailed, "サーバーのアドレスが正しくありません。"},
    {CURLE_UNSUPPORTED_PROTOCOL, Failure::ConnectionFailed, "サーバーの応答がHTTPの形式ではありません。"},
    {CURLE_WEIRD_SERVER_REPLY, Failure::ConnectionFailed, "サーバーの応答がHTTPの形式ではありません。"},
    {CURLE_GOT_NOTHING, Failure::ConnectionFailed, "サーバーが応答せずに接続を切りました。"},
    {CURLE_PARTIAL_FILE, Failure::ConnectionFailed, "サーバーの応答が途中で切れました。"},
    {CURLE_SEND_ERROR, Failure::ConnectionFailed, "サーバーとの通信が途中で切れました。"},
    {CURLE_RECV_ERROR, Failure::ConnectionFailed, "サーバーとの通信が途中で切れました。"},
    {CURLE_PEER_FAILED_VERIFICATION, Failure::ConnectionFailed, "サーバーの証明書を確認できません。"},
    {CURLE_SSL_CONNECT_ERROR, Failure::ConnectionFailed, "サーバーと安全な接続を開始できません。"},
    {CURLE_SSL_CACERT_BADFILE, Failure::ConnectionFailed, "証明書の一覧を読み込めません。"},
    {CURLE_WRITE_ERROR, Failure::ConnectionFailed, "サーバーの応答が長すぎます。"},
    {CURLE_ABORTED_BY_CALLBACK, Failure::DeviceIo, "送信するファイルを読み込めません。"},
    {CURLE_OUT_OF_MEMORY, Failure::OutOfMemory, "メモリが足りません。"},
});

/// Converts every failure of the library to one of the system. The library's number is added for the log.
[[noreturn]] void raise(CURLcode code) {
    const std::string number = "（" + std::to_string(static_cast<int>(code)) + "）";
    for (const auto& known : kFailures) {
        if (known.code == code) {
            throw RunTimeError(known.number, std::string(known.text) + number);
        }
    }
    throw RunTimeError(Failure::ConnectionFailed, "サーバーとの通信に失敗しました。" + number);
}

struct CurlCloser {
    void operator()(CURL* curl) const { curlLibrary().easyCleanup(curl); }
    void operator()(curl_slist* list) const { curlLibrary().slistFreeAll(list); }
    void operator()(char* text) const { curlLibrary().free(text); }
};
using Curl = std::unique_ptr<CURL, CurlCloser>;
using HeaderList = std::unique_ptr<curl_slist, CurlCloser>;

Curl openCurl() {
    Curl curl(curlLibrary().easyInit());
    if (!curl) {
        raise(CURLE_FAILED_INIT);
    }
    return curl;
}

template <typename T>
void set(const Curl& curl, CURLoption option, T value) {
    if (const CURLcode code = curlLibrary().easySetopt(curl.get(), option, value); code != CURLE_OK) {
        raise(code);
    }
}

/// Without a scheme the library would guess one, and send the credentials to any host that a wrong setting names.
void requireScheme(std::string_view url) {
    const std::string_view scheme = url.substr(0, url.find("//"));
    if (scheme.size() == url.size() || !(equalWithoutCase(scheme, "http:") || equalWithoutCase(scheme, "https:"))) {
        raise(CURLE_URL_MALFORMAT);
    }
}

struct Arrival {
    HttpResponse response;
    bool headIsWhole = false;
    std::size_t headBytes = 0;  // including interim heads and the trailer
};

std::size_t takeBody(const char* bytes, std::size_t, std::size_t count, void* arrival) {
    std::string& body = static_cast<Arrival*>(arrival)->response.body;
    if (count > kLongestResponse - body.size()) {
        return 0;
    }
    body.append(bytes, count);
    return count;
}

/// Returns the reason in "HTTP/1.1 404 Not Found".
std::string_view reasonIn(std::string_view line) {
    const std::size_t code = line.find(' ');
    const std::size_t words = code == line.npos ? line.npos : line.find(' ', code + 1);
    return words == line.npos ? "" : line.substr(words + 1);
}

/// The last status line counts, because interim ones precede it. Checks for the blank line after the head, because the
/// library accepts a truncated head.
std::size_t addHeader(const char* bytes, std::size_t, std::size_t count, void* data) {
    auto& arrival = *static_cast<Arrival*>(data);
    arrival.headBytes += count;
    if (arrival.headBytes > kLongestResponse) {
        return 0;
    }
    const std::string_view whole(bytes, count);
    const std::string_view line = whole.substr(0, whole.find_first_of("\r\n"));
    if (line.starts_with("HTTP/")) {
        arrival.response = {.status = 0, .reason = std::string(reasonIn(line)), .body = {}};
        arrival.headIsWhole = false;
    }
    arrival.headIsWhole |= line.empty();
    return count;
}

/// The file during the upload. Its length was announced, so a file with another length is a failure.
struct Upload {
    std::FILE* file;
    curl_off_t left = -1;
};

std::size_t giveFile(char* buffer, std::size_t, std::size_t capacity, void* data) {
    auto& upload = *static_cast<Upload*>(data);
    const auto most = static_cast<std::size_t>(std::min(static_cast<curl_off_t>(capacity), upload.left));
    const std::size_t count = std::fread(buffer, 1, most, upload.file);
    upload.left -= static_cast<curl_off_t>(count);
    return count == 0 && upload.left > 0 ? CURL_READFUNC_ABORT : count;
}

void setCommon(const Curl& curl, const HttpRequest& request, Arrival& arrival) {
    requireScheme(request.url);
    set(curl, CURLOPT_URL, request.url.c_str());
    set(curl, CURLOPT_PROTOCOLS_STR, "http,https");
    set(curl, CURLOPT_HTTP_VERSION, CURL_HTTP_VERSION_1_1);
    set(curl, CURLOPT_FOLLOWLOCATION, 0L);
    set(curl, CURLOPT_SSLVERSION, static_cast<long>(CURL_SSLVERSION_TLSv1_2));
    set(curl, CURLOPT_SSL_VERIFYPEER, 1L);
    set(curl, CURLOPT_SSL_VERIFYHOST, 2L);
    set(curl, CURLOPT_PROXY, "");
    set(curl, CURLOPT_NETRC, CURL_NETRC_IGNORED);
    set(curl, CURLOPT_NOSIGNAL, 1L);
    // Otherwise a silent name server blocks the program beyond the time-out.
    set(curl, CURLOPT_QUICK_EXIT, 1L);
    set(curl, CURLOPT_TIMEOUT_MS, static_cast<long>(std::max<std::int64_t>(request.timeout.count(), 0)));
    set(curl, CURLOPT_CONNECTTIMEOUT, kConnectSeconds);
    // Ends an unlimited wait if the other machine is gone.
    set(curl, CURLOPT_TCP_KEEPALIVE, 1L);
    set(curl, CURLOPT_WRITEFUNCTION, takeBody);
    set(curl, CURLOPT_WRITEDATA, &arrival);
    set(curl, CURLOPT_HEADERFUNCTION, addHeader);
    set(curl, CURLOPT_HEADERDATA, &arrival);
}

void setCredentials(const Curl& curl, const HttpRequest& request) {
    if (!request.user.empty()) {
        set(curl, CURLOPT_HTTPAUTH, CURLAUTH_BASIC);
        set(curl, CURLOPT_USERNAME, request.user.c_str());
        set(curl, CURLOPT_PASSWORD, request.password.c_str());
    }
}

HeaderList headerList(const HttpRequest& request) {
    // An empty "Expect:" prevents the library from asking before it sends, which many servers never answer.
    HeaderList list(curlLibrary().slistAppend(nullptr, "Expect:"));
    for (const auto& header : request.headers) {
        if (!list || !curlLibrary().slistAppend(list.get(), header.c_str())) {
            raise(CURLE_OUT_OF_MEMORY);
        }
    }
    return list;
}

void setUpload(const Curl& curl, Upload& upload) {
    if (std::fseek(upload.file, 0, SEEK_END) == 0) {
        upload.left = std::ftell(upload.file);
    }
    if (upload.left < 0 || std::fseek(upload.file, 0, SEEK_SET) != 0) {
        raise(CURLE_ABORTED_BY_CALLBACK);
    }
    set(curl, CURLOPT_UPLOAD, 1L);
    set(curl, CURLOPT_READFUNCTION, giveFile);
    set(curl, CURLOPT_READDATA, &upload);
    set(curl, CURLOPT_INFILESIZE_LARGE, upload.left);
}

void setPost(const Curl& curl, const std::string& body) {
    set(curl, CURLOPT_POST, 1L);
    set(curl, CURLOPT_POSTFIELDS, body.data());
    set(curl, CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(body.size()));
}

/// A transfer that lets the windows be painted while it waits.
class Transfer : NonCopyable {
public:
    explicit Transfer(const Curl& curl) : curl_(curl), multi_(curlLibrary().multiInit()) {
        if (multi_ == nullptr || curlLibrary().multiAddHandle(multi_, curl_.get()) != CURLM_OK) {
            curlLibrary().multiCleanup(multi_);
            raise(CURLE_FAILED_INIT);
        }
    }
    ~Transfer() {
        curlLibrary().multiRemoveHandle(multi_, curl_.get());
        curlLibrary().multiCleanup(multi_);
    }

    CURLcode result() {
        int running = 1;
        while (step(running) && running > 0) {
            curlLibrary().multiPoll(multi_, nullptr, 0, static_cast<int>(kWaitingPause.count()), nullptr);
            whileWaiting();
        }
        int left = 0;
        const CURLMsg* message = curlLibrary().multiInfoRead(multi_, &left);
        return message == nullptr ? CURLE_RECV_ERROR : message->data.result;
    }

private:
    bool step(int& running) { return curlLibrary().multiPerform(multi_, &running) == CURLM_OK; }

    const Curl& curl_;
    CURLM* multi_;
};

}  // namespace

HttpResponse exchange(const HttpRequest& request) {
    Arrival arrival;
    Upload upload{request.file};
    const HeaderList headers = headerList(request);
    const Curl curl = openCurl();
    setCommon(curl, request, arrival);
    setCredentials(curl, request);
    set(curl, CURLOPT_HTTPHEADER, headers.get());
    if (request.file != nullptr) {
        setUpload(curl, upload);
    } else if (!request.body.empty()) {
        setPost(curl, request.body);
    }
    // Checks the result before the status, because a transfer that broke after a good status line is a failure.
    if (const CURLcode code = Transfer(curl).result(); code != CURLE_OK || !arrival.headIsWhole) {
        raise(code == CURLE_OK ? CURLE_PARTIAL_FILE : code);
    }
    long status = 0;
    curlLibrary().easyGetinfo(curl.get(), CURLINFO_RESPONSE_CODE, &status);
    arrival.response.status = static_cast<std::int32_t>(status);
    arrival.response.reason = printable(arrival.response.reason);
    return std::move(arrival.response);
}

std::string withEncodedName(const std::string& url) {
    const std::size_t scheme = url.find("://");
    const std::size_t host = scheme == std::string::npos ? 0 : scheme + 3;
    const std::size_t slash = url.rfind('/');
    if (slash == std::string::npos || slash < host || slash + 1 == url.size()) {
        return url;
    }
    const std::string name = url.substr(slash + 1);
    const std::unique_ptr<char, CurlCloser> encoded(
        curlLibrary().easyEscape(nullptr, name.data(), static_cast<int>(name.size())));
    if (!encoded) {
        raise(CURLE_OUT_OF_MEMORY);
    }
    return url.substr(0, slash + 1) + encoded.get();
}

}  // namespace orv
