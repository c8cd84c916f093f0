#pragma once

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

}  // namespace orv
