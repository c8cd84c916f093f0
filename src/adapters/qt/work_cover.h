#pragma once

#include <memory>

#include "adapters/qt/input_gate.h"
#include "adapters/qt/page_cover.h"

namespace orv {

/// Says what the program is doing. It appears after half a second. From the start until the operator's input of the
/// meantime has been dropped, it keeps all input, and the close box, from the page.
class WorkCover : public PageCover {
public:
    explicit WorkCover(QWidget* page);

    /// Disappears, and deletes itself once the input that is due has been dropped.
    void end();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::unique_ptr<InputGate> gate_;
    bool ended_ = false;
};

}  // namespace orv
