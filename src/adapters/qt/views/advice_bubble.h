#pragma once

#include <QObject>
#include <QString>
#include <functional>

class QLineEdit;

namespace orv {

/// Advice at a field: a tool tip with what the field takes and the text that it can't show whole, and a bubble with a
/// sound when it refuses something. The next key removes the bubble.
class AdviceBubble : public QObject {
public:
    /// Calls `fault` with the reason of a refusal, and with an empty text when it no longer holds.
    AdviceBubble(QLineEdit& field, QString limit, std::function<void(const QString&)> fault);

    /// An empty `why`: the input has been taken.
    void refuse(const QString& why);
    /// The same after the present event, for one in which the focus leaves the field.
    void refuseLater(const QString& why);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QString tip() const;

    QLineEdit& field_;
    QString limit_;
    std::function<void(const QString&)> fault_;
};

}  // namespace orv
