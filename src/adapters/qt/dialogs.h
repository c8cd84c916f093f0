#pragma once

#include <QSize>
#include <QWidget>
#include <cstddef>
#include <optional>
#include <string>

#include "platform/machine/window_system.h"

namespace orv {

/// Shows the notice, not larger than `space`, and waits. Returns the index of the button that was pressed.
std::size_t runNotice(const Notice& notice, QWidget* owner, QSize space);

/// Shows the open dialog above `owner`, which may be null, not larger than `space`, and waits for the file. The
/// operator cannot rename, delete or create files in it.
std::optional<std::string> runOpenDialog(const FileQuestion& question, QWidget* owner, QSize space);

}  // namespace orv
