#include "suite_server.h"

#include <httplib.h>

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <iomanip>
#include <mutex>
#include <sstream>
#include <thread>

#include "company_service.h"
#include "durable_file.h"
#include "misbehaviour.h"
#include "photo_service.h"

namespace orv {
namespace {

constexpr const char* kLoopback = "127.0.0.1";
constexpr std::size_t kLargestRequest = 64 * 1024 * 1024;
constexpr std::size_t kPromisedBytes = 1000;

/// Reserves the port for one server. The library's default lets a second server share it unnoticed.
void ownPortOnly(int socket) {
    const int yes = 1;
    setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, reinterpret_cast<const char*>(&yes), sizeof yes);
}

/// Announces a body and closes the connection in the middle of it.
void cutShort(httplib::Response& response, const char* contentType) {
    response.set_content_provider(kPromisedBytes, contentType, [](std::size_t, std::size_t, httplib::DataSink& sink) {
        sink.write("{\"id\":", 6);
        return false;
    });
}

void answerWith(const ServiceAnswer& answer, const Misbehaviour& behaviour, const char* contentType,
                httplib::Response& response) {
    std::this_thread::sleep_for(behaviour.delay);
    response.status = answer.status;
    if (behaviour.cut) {
        response.status = 200;
        cutShort(response, contentType);
    } else if (behaviour.garbage) {
        response.set_content("<html>\xFF\xFE{]", contentType);
    } else if (!answer.body.empty()) {
        response.set_content(answer.body, contentType);
    }
}

/// Writes one line per request: local time, method, path, status and size of the body. Headers and bodies are never
/// logged.
class RequestLog {
public:
    explicit RequestLog(const std::filesystem::path& file) : stream_(file, std::ios::app) {}

    void write(const std::string& method, std::string path, int status, std::size_t bytes) {
        // The client chooses the path; a line break in it would forge a line.
        std::ranges::replace_if(
            path, [](char c) { return (c >= 0 && c <= ' ') || c == '\x7F'; }, '?');
        const std::time_t now = std::time(nullptr);
        const std::lock_guard lock(guard_);
        stream_ << std::put_time(std::localtime(&now), "%Y-%m-%dT%H:%M:%S") << ' ' << method << ' ' << path << ' '
                << status << ' ' << bytes << std::endl;
    }

private:
    std::mutex guard_;
    std::ofstream stream_;
};

}  // namespace

struct SuiteServer::Parts {
    explicit Parts(const std::filesystem::path& at)
        : folder(at), photos(at / "photos"), companies(at), log(at / "requests.log") {}

    /// Does a service's work for a request, with its faults.
    template <typename Work>
    auto handler(Service service, const char* contentType, Work work) {
        return [this, service, contentType, work](const httplib::Request& request, httplib::Response& response) {
            const Misbehaviour behaviour = board.countRequest(service);
            if (behaviour.goneAt == 1) {
                http.stop();  // first stops accepting, so that no new client is dropped
                std::_Exit(EXIT_SUCCESS);
            }
            const ServiceAnswer answer =
                behaviour.status ? ServiceAnswer{*behaviour.status, ""} : work(request, behaviour);
            answerWith(answer, behaviour, contentType, response);
        };
    }

    void setRoutes();
    void configure();
    void readInstructions(const httplib::Request& request, httplib::Response& response);

    std::filesystem::path folder;
    PhotoService photos;
    CompanyService companies;
    MisbehaviourBoard board;
    RequestLog log;
    httplib::Server http;
};

void SuiteServer::Parts::setRoutes() {
    http.Get("/cussend/", handler(Service::Prepare, "text/plain", [](const auto&, const Misbehaviour&) {
                 return ServiceAnswer{200, "ready\n"};
             }));
    http.Post("/cussend/register", handler(Service::Companies, "application/json",
                                           [this](const httplib::Request& request, const Misbehaviour& behaviour) {
                                               return companies.registerCompany(request.body, behaviour.idLength);
                                           }));
    http.Put("/rereceive46/davroot/(.*)",
             handler(Service::Photos, "text/plain", [this](const httplib::Request& request, const Misbehaviour&) {
                 return photos.put(request.matches[1], request.get_header_value("Authorization"), request.body);
             }));
    http.Post("/misbehave", [this](const httplib::Request& request, httplib::Response& response) {
        readInstructions(request, response);
    });
}

void SuiteServer::Parts::readInstructions(const httplib::Request& request, httplib::Response& response) {
    if (request.remote_addr != kLoopback) {
        response.status = 403;
        return;
    }
    std::istringstream lines(request.body.empty() ? "well" : request.body);
    response.status = 204;
    for (std::string line; std::getline(lines, line);) {
        if (!board.instruct(line)) {
            response.status = 400;
        }
    }
}

void SuiteServer::Parts::configure() {
    http.set_socket_options(ownPortOnly);
    http.set_payload_max_length(kLargestRequest);
    http.set_tcp_nodelay(true);
    http.set_post_routing_handler([this](const httplib::Request& request, httplib::Response& response) {
        if (response.status == 401) {
            response.set_header("WWW-Authenticate", "Basic realm=\"photos\"");
        }
        // Before the answer is sent, so that a client with the answer finds the line.
        log.write(request.method, request.path, response.status, request.body.size());
    });
}

SuiteServer::SuiteServer(const std::filesystem::path& folder) {
    std::filesystem::create_directories(folder);
    std::filesystem::remove(folder / "port");
    parts_ = std::make_unique<Parts>(folder);
    parts_->setRoutes();
    parts_->configure();
}

SuiteServer::~SuiteServer() = default;

int SuiteServer::bind(int port) {
    auto& http = parts_->http;
    const int bound = port == 0 ? http.bind_to_any_port(kLoopback) : http.bind_to_port(kLoopback, port) ? port : -1;
    if (bound > 0) {
        writeDurably(parts_->folder / "port", std::to_string(bound) + "\n");
    }
    return bound;
}

void SuiteServer::serve() { parts_->http.listen_after_bind(); }

void SuiteServer::stop() {
    // The library ignores a stop before it runs.
    while (!parts_->http.is_running()) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    parts_->http.stop();
}

bool SuiteServer::instruct(std::string_view instruction) { return parts_->board.instruct(instruction); }

}  // namespace orv
