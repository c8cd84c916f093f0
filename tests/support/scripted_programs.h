#pragma once

// Replacements for the other programs: the menu, the searches, the sender.

#include <optional>
#include <vector>

#include "platform/machine/program_starter.h"
#include "platform/machine/sibling_programs.h"
#include "platform/run_time_error.h"
#include "platform/suite/company_send_service.h"

namespace orv {

/// Starts nothing and records the command lines. If `failure` is set, a start fails with it and is not recorded.
class StartedPrograms : public ProgramStarter {
public:
    std::vector<std::string> commandLines;
    std::optional<Failure> failure;

    void start(const std::string& commandLine) override {
        if (failure) throw RunTimeError(*failure);
        commandLines.push_back(commandLine);
    }
};

/// Starts nothing; the test acts as the program. If `failure` is set, a start fails with it.
class ScriptedSibling : public SiblingPrograms {
public:
    std::vector<std::string> commandLines;
    std::optional<Failure> failure;

    void start(const std::string& commandLine, SiblingCalls calls) override {
        if (failure) throw RunTimeError(*failure);
        commandLines.push_back(commandLine);
        calls_ = std::move(calls);
    }
    void bringToFront() override {}
    void dismiss() override { calls_.reset(); }

    bool listenedTo() const { return calls_.has_value(); }
    // Calls a copy, because the call can dismiss the program.
    bool setText(std::uint32_t handle, const std::string& text) const {
        const auto calls = calls_;
        return calls && calls->setText(handle, text);
    }
    bool pressKey(std::uint32_t handle, int key) const {
        const auto calls = calls_;
        return calls && calls->pressKey(handle, key);
    }
    void end() {
        if (const auto calls = std::exchange(calls_, std::nullopt)) calls->gone();
    }

private:
    std::optional<SiblingCalls> calls_;
};

/// The answers of a test's server stand-in, and the data sent to it.
struct SendScript {
    bool takes = true;
    std::string id = "000004601";
    FailureRecord error{"サーバーの故障", "SEND:9"};
    std::function<void()> meanwhile;
    std::vector<std::string> sent;
    int prepared = 0;
};

class ScriptedSend : public CompanySendService {
public:
    explicit ScriptedSend(SendScript& script) : script_(script) {}

    FailureRecord SendError() const override { return script_.error; }
    void SendPrepare(bool& ok) override {
        ++script_.prepared;
        ok = true;
    }
    void SendCompany(const std::string& userId, std::string& id, bool& ok) override {
        script_.sent.push_back(userId);
        if (script_.meanwhile) script_.meanwhile();
        id = script_.id;
        ok = script_.takes;
    }

private:
    SendScript& script_;
};

}  // namespace orv
