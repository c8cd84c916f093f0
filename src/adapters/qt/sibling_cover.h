#pragma once

#include <functional>

#include "adapters/qt/page_cover.h"

namespace orv {

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
