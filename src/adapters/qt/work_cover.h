#pragma once

#include <functional>
#include <memory>

#include "adapters/qt/input_gate.h"
#include "adapters/qt/page_cover.h"

namespace orv {

/// Shows the name of a long operation. Appears after half a second. Blocks all input to the page and its close box from
/// the start until the input that arrived meanwhile has been dropped.
class WorkCover : public PageCover {
public:
    explicit WorkCover(QWidget* page);

    /// Hides the cover and deletes it after pending input has been dropped.
    void end();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::unique_ptr<InputGate> gate_;
    bool ended_ = false;
};

/// Asks the operator to use another program's window. Covers a page that is waiting for that program and takes no
/// input.
class SiblingCover : public PageCover {
public:
    /// `pressed` is called when the operator presses a mouse button anywhere on the page.
    SiblingCover(QWidget& page, const QString& line, std::function<void()> pressed);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::function<void()> pressed_;
};

}  // namespace orv
