#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/run_time_error.h"
#include "platform/suite/company_send_service.h"

namespace orv {

/// What the server stand-in of a test answers, and what it was told.
struct SendScript {
    bool prepares = true;
    bool takes = true;
    std::string id = "000004601";
    FailureRecord error{"サーバーの故障", "SEND:9"};
    /// Runs while the company is being sent.
    std::function<void()> meanwhile;
    /// The service itself breaks while it sends.
    std::optional<Failure> failure;
    std::vector<std::string> sent;
    int prepared = 0;
};

class ScriptedSend : public CompanySendService {
public:
    explicit ScriptedSend(SendScript& script) : script_(script) {}

    FailureRecord SendError() const override { return script_.error; }
    void SendPrepare(bool& ok) override {
        ++script_.prepared;
        ok = script_.prepares;
    }
    void SendCompany(const std::string& userId, std::string& id, bool& ok) override {
        script_.sent.push_back(userId);
        if (script_.meanwhile) {
            script_.meanwhile();
        }
        if (script_.failure) {
            throw RunTimeError(*script_.failure);
        }
        id = script_.id;
        ok = script_.takes;
    }

private:
    SendScript& script_;
};

}  // namespace orv
