#pragma once

#include <functional>

#include "adapters/qt/page_cover.h"

namespace orv {

/// Says that another program's window is to be used, over a page that waits for it and takes no input.
class SiblingCover : public PageCover {
public:
    /// `pressed`: the operator has pressed a mouse button somewhere on the page.
    SiblingCover(QWidget& page, const QString& line, std::function<void()> pressed);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::function<void()> pressed_;
};

}  // namespace orv
