#pragma once

#include <deque>
#include <vector>

#include "platform/machine/http_control.h"

namespace orv {

/// The requests sent by a test's controls, and the answers. An empty queue answers 200 "OK".
struct HttpScript {
    struct Sent {
        std::string file, url, version;
        std::int32_t timeout = 0;
        std::string user, password;
        bool omitted = false;
    };
    struct Answer {
        std::int32_t status = 200;
        std::string text = "OK";
    };

    std::vector<Sent> sent;
    std::deque<Answer> answers;
    std::int32_t state = 0;
};

class RecordedHttp : public HttpControl {
public:
    explicit RecordedHttp(HttpScript& script) : script_(script) {}

    std::int32_t State() const override { return script_.state; }
    void Timeout(std::int32_t milliseconds) override { next_.timeout = milliseconds; }
    void Version(const std::string& version) override { next_.version = version; }
    void URL(const std::string& url) override { next_.url = url; }
    void Upload(const std::string& file, const std::optional<std::string>& contentType, std::string& response,
                const std::optional<std::string>& headers, const std::string& user,
                const std::string& password) override {
        next_.file = file;
        next_.user = user;
        next_.password = password;
        next_.omitted = !contentType && !headers;
        script_.sent.push_back(next_);
        answer_ = {};
        if (!script_.answers.empty()) {
            answer_ = script_.answers.front();
            script_.answers.pop_front();
        }
        response = answer_.text;
    }
    std::int32_t ResponseCode() const override { return answer_.status; }
    std::string ResponseText() const override { return answer_.text; }

private:
    HttpScript& script_;
    HttpScript::Sent next_;
    HttpScript::Answer answer_;
};

}  // namespace orv
