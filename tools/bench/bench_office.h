#pragma once

#include <string>

#include "adapters/qt/application.h"
#include "app/compose.h"
#include "app/tie_system.h"
#include "core/flow/start.h"
#include "platform/services.h"
#include "ui_driver.h"

namespace bench {

/// A message service without an operator: shows nothing and lets the action continue.
class Silent : public orv::MessageService {
public:
    orv::FailureRecord ErrorInfo() const override { return {}; }
    std::int32_t LastAnswer() const override { return 0; }
    bool ShowMessage(const std::string& id, const orv::Values&) override {
        last_ = id;
        return true;
    }
    const std::string& last() const { return last_; }

private:
    std::string last_;
};

/// Adds companies that have only numbers, which follow those of the sample.
void addCompanies(const ui_driver::Office& office, int count);

/// The program running in an office, without a screen or an operator.
class RunningProgram {
public:
    RunningProgram(const ui_driver::Office& office, const std::string& argument)
        : composition_((office.drive() / "ORV/BIN").string()) {
        orv::services().message = &silent_;
        orv::services().commandTail = argument;
        orv::tieSystem();
        orv::Main();
    }

    const Silent& messages() const { return silent_; }

private:
    orv::Composition composition_;
    Silent silent_;
};

}  // namespace bench
