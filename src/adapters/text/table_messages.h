#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "adapters/text/message_table.h"
#include "platform/machine/code_page.h"
#include "platform/machine/file_system.h"
#include "platform/suite/message_service.h"

namespace orv {

/// Shows the messages of the suite's table in the window system's boxes.
///
/// Reads the table file once, at the first message. If the file or some of its lines cannot be read, logs that and uses
/// the built-in texts. A question has the buttons はい and いいえ. いいえ is the default, and Esc and the close box
/// have the same effect, answer 1. Everything else is answer 0. An unknown id is shown as a question with its values,
/// and logged. Values and texts that do not fit on a screen are truncated.
class TableMessages : public MessageService {
public:
    using Path = std::function<std::string()>;
    using Log = std::function<void(const std::string& code, const std::string& text)>;

    /// `tablePath` is called at the first message. All arguments must outlive the service.
    TableMessages(WindowSystem& windows, const FileSystem& files, const CodePage& codePage, Path tablePath, Log log);

    FailureRecord ErrorInfo() const override { return failure_; }
    std::int32_t LastAnswer() const override { return answer_; }
    bool ShowMessage(const std::string& id, const Values& args) override;

private:
    void readTable();
    bool show(const Message& message, const std::vector<std::string>& values);
    bool showUnknown(const std::string& id, const std::vector<std::string>& values);

    WindowSystem& windows_;
    const FileSystem& files_;
    const CodePage& codePage_;
    Path tablePath_;
    Log log_;
    bool read_ = false;
    MessageTable table_;
    FailureRecord failure_;
    std::int32_t answer_ = 1;
};

}  // namespace orv
