#include <QWinEventNotifier>

#include "adapters/qt/application.h"
#include "adapters/qt/desktop.h"

namespace orv {

const char* toolkitPlatforms() { return "windows"; }

std::unique_ptr<QApplication> prepareToolkit(const std::function<std::unique_ptr<QApplication>()>& create) {
    return create();
}

std::unique_ptr<QObject> keepInputInOrder() { return nullptr; }

/// The last one is for other systems that run programs for Windows.
QStringList japaneseFamilies() {
    return {QStringLiteral("Yu Gothic UI"), QStringLiteral("Meiryo UI"), QStringLiteral("Meiryo"),
            QStringLiteral("MS UI Gothic"), QStringLiteral("Noto Sans CJK JP")};
}

QFileDialog::Options openDialogOptions() { return QFileDialog::ReadOnly; }

std::shared_ptr<void> watchHandle(WaitHandle handle, std::function<void()> ready) {
    auto* notifier = new QWinEventNotifier(handle, qApp);
    QObject::connect(notifier, &QWinEventNotifier::activated, notifier, std::move(ready));
    // The notifier's own event may be running.
    return {static_cast<void*>(notifier), [notifier](void*) {
                notifier->setEnabled(false);
                notifier->deleteLater();
            }};
}

}  // namespace orv
