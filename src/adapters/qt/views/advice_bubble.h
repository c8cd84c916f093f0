#pragma once

#include <QObject>
#include <QString>
#include <functional>

class QLineEdit;

namespace orv {

/// Advises the operator at a field. A tool tip describes the input that the field takes and shows text that does not
/// fit into it. A bubble and a sound report refused input. The next key removes the bubble.
class AdviceBubble : public QObject {
public:
    /// Calls `fault` with the reason for a refusal, and with an empty text when it no longer applies.
    AdviceBubble(QLineEdit& field, QString limit, std::function<void(const QString&)> fault);

    /// Reports a refusal. An empty `why` means that the input was taken.
    void refuse(const QString& why);
    /// Does the same after the current event, for events in which the field loses the focus.
    void refuseLater(const QString& why);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QString tip() const;

    QLineEdit& field_;
    QString limit_;
    std::function<void(const QString&)> fault_;
};

}  // namespace orv
