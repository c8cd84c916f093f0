#pragma once

#include <filesystem>
#include <memory>
#include <string_view>

namespace orv {

/// The server of the suite as far as this program talks to it, on the loopback address only:
///
///   GET  /cussend/                        200: sending can go on
///   POST /cussend/register                takes a company, answers {"id":"..."}
///   PUT  /rereceive46/davroot/<name>      takes a photo, with Basic credentials
///   POST /misbehave                       instructions for MisbehaviourBoard, one a line; an empty body: all behave
///
/// In its folder: port, requests.log, photos/<name>, companies/<id>.json, last_number.
class SuiteServer {
public:
    explicit SuiteServer(const std::filesystem::path& folder);
    ~SuiteServer();

    /// 0 takes any free port. The port listened at, or -1; from then on clients can connect.
    [[nodiscard]] int bind(int port);
    /// Answers until `stop` is called from another thread.
    void serve();
    /// Ends a `serve` that runs or is about to, and waits for nothing else.
    void stop();
    [[nodiscard]] bool instruct(std::string_view instruction);

private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

}  // namespace orv
