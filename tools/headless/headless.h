#pragma once

#include <string>
#include <vector>

#include "app/office_adapters.h"
#include "platform/forms/form_host.h"
#include "platform/machine/program_starter.h"
#include "platform/machine/sibling_programs.h"
#include "platform/machine/window_system.h"
#include "platform/suite/message_service.h"

namespace headless {

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
    void showWork(const std::string&) override {}
    void pointToSibling(orv::Form&, const std::string&, std::function<void()>) override {}
    void beep() override {}
    void showPointer(bool) override {}
    void repaint() override {}
};

/// Starts neither the menu nor a search program.
class NoPrograms : public orv::ProgramStarter, public orv::SiblingPrograms {
public:
    void start(const std::string&) override {}
    void start(const std::string&, orv::SiblingCalls) override {}
    void bringToFront() override {}
    void dismiss() override {}
};

struct Message {
    std::string id;
    std::string first;  // argument
};

/// An operator who accepts every question. Records the messages since the last `clear`.
class Operator : public orv::MessageService {
public:
    orv::FailureRecord ErrorInfo() const override { return {}; }
    std::int32_t LastAnswer() const override { return 0; }
    bool ShowMessage(const std::string& id, const orv::Values& args) override;

    void clear() { messages_.clear(); }
    const std::vector<Message>& messages() const { return messages_; }
    bool received(const std::string& id) const;
    /// Returns the code of the first message about a failure, or "".
    std::string failure() const;

private:
    std::vector<Message> messages_;
};

/// The whole system in one office, without windows. Everything else is real.
class Program {
public:
    explicit Program(const std::string& programFolder);

    Operator& user() { return operator_; }

private:
    orv::OfficeAdapters office_;
    orv::FormHost forms_;
    NoWindows windows_;
    NoPrograms programs_;
    Operator operator_;
};

}  // namespace headless
