#include "adapters/qt/descriptor_watch.h"

#include <QCoreApplication>
#include <QSocketNotifier>

namespace orv {

std::shared_ptr<void> watchDescriptor(int descriptor, std::function<void()> readable) {
    auto* notifier = new QSocketNotifier(descriptor, QSocketNotifier::Read, qApp);
    QObject::connect(notifier, &QSocketNotifier::activated, notifier, std::move(readable));
    // The notifier's own event may be running.
    return {static_cast<void*>(notifier), [notifier](void*) {
                notifier->setEnabled(false);
                notifier->deleteLater();
            }};
}

}  // namespace orv
