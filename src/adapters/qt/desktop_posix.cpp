#include <fontconfig/fontconfig.h>
#include <QSocketNotifier>
#include <thread>

#include "adapters/qt/application.h"
#include "adapters/qt/desktop.h"
#include "adapters/qt/input_order.h"

namespace orv {
namespace {

/// Makes the input method's plug-ins wait for the answer to each key. Otherwise a click overtakes the key before it,
/// and the key reaches the field that has the focus by then.
void keepKeysAndClicksInOrder() {
    for (const char* plugIn : {"FCITX_QT_USE_SYNC", "IBUS_ENABLE_SYNC_MODE"}) {
        if (!qEnvironmentVariableIsSet(plugIn)) {
            qputenv(plugIn, "1");
        }
    }
}

}  // namespace

const char* toolkitPlatforms() { return "xcb;offscreen"; }

std::unique_ptr<QApplication> prepareToolkit(const std::function<std::unique_ptr<QApplication>()>& create) {
    keepKeysAndClicksInOrder();
    // The toolkit loads the machine's fonts after it has connected to the display. Both take time, so they run in
    // parallel. The thread reads the environment: adding a variable meanwhile can crash it.
    const std::jthread fonts([] { FcInit(); });
    return create();
}

std::unique_ptr<QObject> keepInputInOrder() { return std::make_unique<InputOrder>(); }

QStringList japaneseFamilies() {
    return {QStringLiteral("Noto Sans CJK JP"), QStringLiteral("IPAPGothic"), QStringLiteral("TakaoPGothic")};
}

/// The desktop's own dialog is not in Japanese on every machine.
QFileDialog::Options openDialogOptions() { return QFileDialog::DontUseNativeDialog | QFileDialog::ReadOnly; }

std::shared_ptr<void> watchHandle(WaitHandle handle, std::function<void()> ready) {
    auto* notifier = new QSocketNotifier(handle, QSocketNotifier::Read, qApp);
    QObject::connect(notifier, &QSocketNotifier::activated, notifier, std::move(ready));
    // The notifier's own event may be running.
    return {static_cast<void*>(notifier), [notifier](void*) {
                notifier->setEnabled(false);
                notifier->deleteLater();
            }};
}

}  // namespace orv
