#pragma once

#include <gtest/gtest.h>

#include <string>

#include "adapters/text/cp932.h"
#include "config/shared_settings.h"
#include "core/record/globals.h"
#include "logging/log_files.h"
#include "platform/services.h"
#include "support/fixed_clock.h"
#include "support/memory_machine.h"
#include "support/recorded_messages.h"

namespace orv {

/// What the lower rooms need of the world: an install at C:\X by the registry, and one log in memory.
class SettingsTest : public testing::Test {
protected:
    static constexpr const char* kIni = "C:\\X\\SYS\\system.ini";
    static constexpr const char* kLog = "C:\\LOG\\err.log";
    static constexpr const char* kInstallKey = "SOFTWARE\\ZENTHA\\ORV";

    SettingsTest() {
        theContext = {};
        dropSharedSettings();
        services() = {};
        services().fileSystem = &files;
        services().profiles = &profiles;
        services().registry = &registry;
        services().clock = &clock;
        services().codePage = &codePage;
        services().message = &messages;
        logFiles() = {};
        logFiles().err = [] { return std::string(kLog); };
        registry.put(kInstallKey, "InstallKey", "C:\\X");
    }
    ~SettingsTest() override {
        dropSharedSettings();
        logFiles() = {};
        services() = {};
        theContext = {};
    }

    void set(const std::string& section, const std::string& key, const std::string& value) {
        profiles.set(kIni, section, key, value);
    }
    std::string log() const { return codePage.decode(files.get(kLog)); }
    /// A record of the log, at the clock's time.
    std::string record(const std::string& code, const std::string& text) const {
        return toText(Value(clock.now())) + "," + code + "," + text + "\r\n";
    }

    Cp932 codePage;
    FixedClock clock;
    MemoryFiles files;
    MemoryProfiles profiles;
    MemoryRegistry registry;
    RecordedMessages messages;
};

}  // namespace orv
