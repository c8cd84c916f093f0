#pragma once

#include "platform/machine/window_system.h"

namespace orv {

/// Shows nothing and takes every notice for answered by its first button.
class NoWindows : public WindowSystem {
public:
    void open(Form&) override {}
    void show(Form&) override {}
    void close(Form&) override {}
    void centre(Form&) override {}
    void runModal(Form&) override {}
    std::size_t showNotice(const Notice&) override { return 0; }
    std::optional<std::string> openFile(const FileQuestion&) override { return std::nullopt; }
    void commitComposition() override {}
    void pointer(bool) override {}
    void repaint() override {}
};

}  // namespace orv
