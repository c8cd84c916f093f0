#pragma once

#include <QAccessible>
#include <QString>

class QWidget;

namespace orv {

/// Implemented by widgets whose role is not that of a plain container.
class AccessibleRole {
public:
    virtual ~AccessibleRole() = default;

    virtual QAccessible::Role accessibleRole() const = 0;
};

/// Provides the roles of windows and pictures and the names of lists to assistive technology. Call it once, after the
/// application object has been created.
void installAccessibility();

/// Makes screen readers read a line that appears in the window of `place` without receiving the focus.
void announce(const QWidget& place, const QString& line);

}  // namespace orv
