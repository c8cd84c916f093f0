#include "adapters/qt/views/accessibility.h"

#include <QAbstractItemView>
#include <QAccessibleWidget>
#include <QComboBox>
#include <QWidget>

namespace orv {
namespace {

// The toolkit also calls these from the destructor of QWidget, where the casts return null.

class NamedRole : public QAccessibleWidget {
public:
    using QAccessibleWidget::QAccessibleWidget;

    QAccessible::Role role() const override {
        const auto* role = dynamic_cast<const AccessibleRole*>(object());
        return role == nullptr ? QAccessible::NoRole : role->accessibleRole();
    }
};

/// Reports the list's own name, where the toolkit's interface would report the chosen entry.
class NamedList : public QAccessibleWidget {
public:
    explicit NamedList(QComboBox* box) : QAccessibleWidget(box, QAccessible::ComboBox) {}

    int childCount() const override { return view() == nullptr ? 0 : 1; }
    QAccessibleInterface* child(int index) const override {
        return index == 0 ? QAccessible::queryAccessibleInterface(view()) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface* child) const override { return child->object() == view() ? 0 : -1; }
    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Value && box() != nullptr ? box()->currentText() : QAccessibleWidget::text(kind);
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.expandable = true;
        state.expanded = view() != nullptr && view()->isVisible();
        return state;
    }
    QStringList actionNames() const override { return {showMenuAction(), setFocusAction()}; }
    void doAction(const QString& action) override {
        if (action == showMenuAction() && box() != nullptr && box()->isEnabled()) {
            box()->showPopup();
        } else {
            QAccessibleWidget::doAction(action);
        }
    }

private:
    QComboBox* box() const { return qobject_cast<QComboBox*>(object()); }
    QAbstractItemView* view() const { return box() == nullptr ? nullptr : box()->view(); }
};

QAccessibleInterface* makeInterface(const QString& /*className*/, QObject* object) {
    if (auto* widget = qobject_cast<QWidget*>(object); dynamic_cast<AccessibleRole*>(widget) != nullptr) {
        return new NamedRole(widget);
    }
    auto* box = qobject_cast<QComboBox*>(object);
    return box != nullptr && !box->isEditable() ? new NamedList(box) : nullptr;
}

/// A widget that is never on the screen. Screen readers read its name when it is reported as shown.
class Announcement : public QWidget, public AccessibleRole {
public:
    explicit Announcement(QWidget* window) : QWidget(window) { hide(); }

    QAccessible::Role accessibleRole() const override { return QAccessible::Notification; }
};

Announcement& findAnnouncement(QWidget& window) {
    for (QObject* child : window.children()) {
        if (auto* announcement = dynamic_cast<Announcement*>(child)) {
            return *announcement;
        }
    }
    return *new Announcement(&window);
}

}  // namespace

void installAccessibility() { QAccessible::installFactory(makeInterface); }

void announce(const QWidget& place, const QString& line) {
    if (QAccessible::isActive()) {
        Announcement& announcement = findAnnouncement(*place.window());
        announcement.setAccessibleName(line);
        QAccessibleEvent appears(&announcement, QAccessible::ObjectShow);
        QAccessible::updateAccessibility(&appears);
    }
}

}  // namespace orv
