#pragma once

#include <filesystem>
#include <memory>
#include <string_view>

namespace orv {

/// The part of the suite's server that this program uses, on the loopback address only:
///
///   GET  /cussend/                        200: sending can continue
///   POST /cussend/register                accepts a company, answers {"id":"..."}
///   PUT  /rereceive46/davroot/<name>      accepts a photo, with Basic credentials
///   POST /misbehave                       instructions for MisbehaviourBoard, one per line; an empty body removes all
///
/// Its folder contains: port, requests.log, photos/<name>, companies/<id>.json, last_number.
class SuiteServer {
public:
    explicit SuiteServer(const std::filesystem::path& folder);
    ~SuiteServer();

    /// Port 0 takes any free port. Returns the port, or -1. From then on clients can connect.
    [[nodiscard]] int bind(int port);
    /// Handles requests until `stop` is called from another thread.
    void serve();
    /// Ends a `serve` that runs or is about to run, without waiting.
    void stop();
    [[nodiscard]] bool instruct(std::string_view instruction);

private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

}  // namespace orv
