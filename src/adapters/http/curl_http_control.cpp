#include "adapters/http/curl_http_control.h"

#include <sstream>

#include "adapters/http/curl_session.h"
#include "platform/machine/file_system.h"
#include "platform/run_time_error.h"
#include "platform/scope.h"

namespace orv {
namespace {

class BusyWhile : NonCopyable {
public:
    explicit BusyWhile(std::atomic<std::int32_t>& state) : state_(state) {
        if (state_.exchange(1) != 0) {
            throw RunTimeError(Failure::InvalidCall, "前の送信がまだ終わっていません。");
        }
    }
    ~BusyWhile() { state_ = 0; }

private:
    std::atomic<std::int32_t>& state_;
};

std::vector<std::string> headerLines(const std::optional<std::string>& contentType,
                                     const std::optional<std::string>& headers) {
    std::vector<std::string> lines;
    if (contentType) {
        lines.push_back("Content-Type: " + *contentType);
    }
    std::istringstream text(headers.value_or(""));
    for (std::string line; std::getline(text, line);) {
        line.resize(std::min(line.find('\r'), line.size()));
        lines.push_back(line);
    }
    return lines;
}

}  // namespace

void CurlHttpControl::Version(const std::string& version) {
    if (version != "HTTP/1.1") {
        throw RunTimeError(Failure::InvalidPropertyValue);
    }
}

void CurlHttpControl::Upload(const std::string& file, const std::optional<std::string>& contentType,
                             std::string& response, const std::optional<std::string>& headers, const std::string& user,
                             const std::string& password) {
    const BusyWhile busy(state_);
    responseCode_ = 0;
    responseText_.clear();
    const FileStream stream = files_.open(file);
    HttpResponse answer = exchange({.url = withEncodedName(url_),
                                    .timeout = timeout_,
                                    .headers = headerLines(contentType, headers),
                                    .body = {},
                                    .file = stream.get(),
                                    .user = user,
                                    .password = password});
    response = std::move(answer.body);
    responseCode_ = answer.status;
    responseText_ = std::move(answer.reason);
}

}  // namespace orv
