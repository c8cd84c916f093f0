#pragma once

#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <thread>

#include "adapters/http/curl_session.h"
#include "platform/run_time_error.h"
#include "suite_server.h"
#include "support/native_files.h"
#include "support/temp_folder.h"

// After the interfaces of the system, which the macros of its Windows header would rename.
#include <httplib.h>

namespace orv {

/// The suite's server on its own port, in a thread of the test.
class RunningSuite {
public:
    explicit RunningSuite(const std::filesystem::path& folder)
        : folder_(folder), server_(folder), port_(server_.bind(0)), thread_([this] { server_.serve(); }) {}
    ~RunningSuite() {
        server_.stop();
        thread_.join();
    }

    std::string url(const std::string& path) const { return "http://127.0.0.1:" + std::to_string(port_) + path; }
    std::string log() const { return readFile(folder_ / "requests.log"); }
    void misbehave(const std::string& instruction) { EXPECT_TRUE(server_.instruct(instruction)) << instruction; }

private:
    std::filesystem::path folder_;
    SuiteServer server_;
    int port_;
    std::thread thread_;
};

/// Answers every request with the same bytes and closes the connection.
class RawServer : private httplib::Server {
public:
    explicit RawServer(std::string answer)
        : answer_(std::move(answer)), port_(bind_to_any_port("127.0.0.1")), thread_([this] { listen_after_bind(); }) {}
    ~RawServer() override {
        while (!is_running()) {
            std::this_thread::yield();
        }
        stop();
        thread_.join();
    }
    std::string url() const { return "http://127.0.0.1:" + std::to_string(port_) + "/"; }
    int requests() const { return requests_; }
    /// Call this only after the answer has arrived.
    std::string lastRequest() const { return requests_ > 0 ? lastRequest_ : ""; }

private:
    bool process_and_close_socket(socket_t client) override {
        std::array<char, 4096> request{};
        const ssize_t count = httplib::detail::read_socket(client, request.data(), request.size(), 0);
        lastRequest_.assign(request.data(), static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
        requests_ += count > 0 ? 1 : 0;
        for (std::string_view rest = answer_; !rest.empty();) {
            const ssize_t sent = httplib::detail::send_socket(client, rest.data(), rest.size(), 0);
            rest.remove_prefix(sent > 0 ? static_cast<std::size_t>(sent) : rest.size());
        }
        httplib::detail::close_socket(client);
        return true;
    }

    std::string answer_;
    int port_;
    std::string lastRequest_;
    std::atomic<int> requests_{0};
    std::thread thread_;
};

/// Returns the answer to a plain request.
inline HttpResponse get(const std::string& url) {
    HttpRequest request;
    request.url = url;
    request.timeout = std::chrono::minutes(3);
    return exchange(request);
}

/// Returns the failure that `act` throws, or number 0.
template <typename Act>
RunTimeError raisedBy(Act act) {
    try {
        act();
    } catch (const RunTimeError& failure) {
        return failure;
    }
    return {0, ""};
}

}  // namespace orv
