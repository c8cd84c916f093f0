#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "adapters/text/message_table.h"
#include "platform/machine/code_page.h"
#include "platform/machine/file_system.h"
#include "platform/suite/message_service.h"

namespace orv {

/// The messages of the suite's table in the boxes of the window system.
///
/// The table file is read at the first message, once. One that can't be read, and lines in it that can't, go to the
/// log; the built-in texts speak then. A question has the buttons はい and いいえ; いいえ is its default, Esc and the
/// close box count as it, and it is answer 1. Everything else is answer 0. An id that nobody knows is asked about, with
/// its values, and logged. Values and texts that would not fit on a screen are cut.
class TableMessages : public MessageService {
public:
    using Path = std::function<std::string()>;
    using Log = std::function<void(const std::string& code, const std::string& text)>;

    /// `tablePath` is asked at the first message. Everything handed in must outlive the service.
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
