#pragma once

#include <QWidget>

#include "adapters/qt/views/accessibility.h"

class QLabel;

namespace orv {

/// Covers the window of a page with a translucent veil and one line of text. Without a page it is a small window of its
/// own.
class PageCover : public QWidget, public AccessibleRole {
public:
    enum class Bar { None, Moving };

    PageCover(QWidget* page, Bar bar);

    void appear();
    void say(const QString& line);

    QAccessible::Role accessibleRole() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void makePanel();
    Qt::Alignment placeOfPanel() const;

    Bar bar_;
    QString said_;
    QLabel* line_ = nullptr;  // null before the cover appears
};

}  // namespace orv
