#pragma once

#include <string>
#include <vector>

#include "adapters/posix/ini_reader.h"
#include "adapters/posix/install_paths.h"
#include "adapters/posix/posix_facts.h"
#include "adapters/posix/posix_files.h"
#include "adapters/posix/posix_sys_info.h"
#include "adapters/posix/registry_file.h"
#include "adapters/store/store_service.h"
#include "adapters/text/cp932.h"
#include "adapters/text/era_calendar.h"
#include "adapters/text/string_check.h"
#include "platform/forms/form_host.h"
#include "platform/machine/program_starter.h"
#include "platform/machine/sibling_desk.h"
#include "platform/machine/window_system.h"
#include "platform/suite/message_service.h"
#include "traced_store.h"

namespace bench {

class NoWindows : public orv::WindowSystem {
public:
    void open(orv::Form&) override {}
    void show(orv::Form&) override {}
    void close(orv::Form&) override {}
    void centre(orv::Form&) override {}
    void runModal(orv::Form&) override {}
    std::size_t showNotice(const orv::Notice& notice) override { return notice.defaultButton; }
    std::optional<std::string> openFile(const orv::FileQuestion&) override { return std::nullopt; }
    void commitComposition() override {}
    void working(const std::string&) override {}
    void pointToSibling(orv::Form&, const std::string&, std::function<void()>) override {}
    void beep() override {}
    void pointer(bool) override {}
    void repaint() override {}
};

/// Starts neither the menu nor a search program.
class NoPrograms : public orv::ProgramStarter, public orv::SiblingDesk {
public:
    void start(const std::string&) override {}
    void start(const std::string&, orv::SiblingCalls) override {}
    void toFront() override {}
    void dismiss() override {}
};

/// An operator who accepts every question and records the messages.
class Patience : public orv::MessageService {
public:
    orv::FailureRecord ErrorInfo() const override { return {}; }
    std::int32_t LastAnswer() const override { return 0; }
    bool ShowMessage(const std::string& id, const orv::Values& args) override;

    void forget() { told_.clear(); }
    bool wasTold(const std::string& id) const;
    /// Returns the code of the first message about a failure, or "".
    std::string failure() const;

private:
    struct Message {
        std::string id;
        std::string code;
    };
    std::vector<Message> told_;
};

/// The whole system in one office, without windows. Store, files, settings and checks are real. The suite's server
/// accepts every company at once, after reading its rows as for sending.
class Headless {
public:
    explicit Headless(const std::string& programFolder);

    Patience& patience() { return patience_; }
    TracedStore& store() { return traced_; }

private:
    void handIn();

    orv::Cp932 codePage_;
    orv::PosixFacts facts_;
    orv::PosixClock clock_;
    orv::InstallPaths paths_;
    orv::PosixFiles files_;
    orv::PosixFileService fileService_;
    orv::IniReader profiles_;
    orv::RegistryFile registry_;
    orv::PosixSysInfo sysInfo_;
    orv::StringCheck stringCheck_;
    orv::EraCalendar calendar_;
    orv::StoreService db_;
    TracedStore traced_;
    orv::FormHost forms_;
    NoWindows windows_;
    NoPrograms programs_;
    Patience patience_;
};

}  // namespace bench
