#include "adapters/qt/input_order.h"

#include <xcb/xcb.h>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QInputEvent>
#include <utility>

#include "platform/scope.h"

namespace orv {
namespace {

constexpr int kEventType = 0x7f;

/// Compares times of the display, which overflow after 49 days.
bool isLater(std::uint32_t time, std::uint32_t other) { return static_cast<std::int32_t>(time - other) > 0; }

/// True for a call from an input method to its plug-in, of ibus or of fcitx5.
bool isCallFromInputMethod(const QObject& receiver, const QEvent& event) {
    return event.type() == QEvent::MetaCall &&
           (receiver.inherits("QIBusInputContextProxy") || receiver.inherits("fcitx::FcitxQtInputContextProxyImpl"));
}

/// A key that is a shortcut only overrides, and is never pressed in the window.
bool isPress(const QEvent& event) {
    return event.type() == QEvent::ShortcutOverride || event.type() == QEvent::KeyPress ||
           event.type() == QEvent::MouseButtonPress;
}

}  // namespace

InputOrder::InputOrder() {
    QCoreApplication::instance()->installEventFilter(this);
    QCoreApplication::instance()->installNativeEventFilter(this);
}

bool InputOrder::nativeEventFilter(const QByteArray& kind, void* message, qintptr* /*result*/) {
    if (kind == "xcb_generic_event_t") {
        const auto* event = static_cast<const xcb_generic_event_t*>(message);
        if ((event->response_type & kEventType) == XCB_KEY_PRESS) {
            fetch();
            pressed_ = static_cast<const xcb_key_press_event_t*>(message)->time;
        }
    }
    return false;
}

void InputOrder::fetch() {
    if (plugIn_ == nullptr) {
        return;
    }
    const FlagGuard fetching(fetching_);
    QCoreApplication::sendPostedEvents(plugIn_, QEvent::MetaCall);
}

bool InputOrder::eventFilter(QObject* watched, QEvent* event) {
    if (isCallFromInputMethod(*watched, *event)) {
        watch(watched);
        if (!fetching_) {
            deliverHeld();
        }
    } else if (event->type() == QEvent::InputMethod && !delivering_) {
        if (fetching_ || !held_.empty()) {
            hold(std::unique_ptr<QInputMethodEvent>(static_cast<QInputMethodEvent*>(event->clone())));
            return true;
        }
    } else if (isPress(*event) && watched->isWindowType()) {
        prepare(static_cast<std::uint32_t>(static_cast<const QInputEvent*>(event)->timestamp()), event->type());
    }
    return false;
}

/// Connects the signal by its number, because this class has no generated code for slots.
void InputOrder::watch(QObject* plugIn) {
    if (plugIn_ == plugIn) {
        return;
    }
    plugIn_ = plugIn;
    if (const int signal = plugIn->metaObject()->indexOfSignal("ForwardKey(uint,uint,bool)"); signal >= 0) {
        // Every window has a plug-in's object of its own, which can be watched again.
        QMetaObject::connect(plugIn, signal, this, QObject::staticMetaObject.methodCount(),
                             Qt::DirectConnection | Qt::UniqueConnection);
    }
}

int InputOrder::qt_metacall(QMetaObject::Call call, int method, void** arguments) {
    const int own = QObject::qt_metacall(call, method, arguments);
    if (call == QMetaObject::InvokeMetaMethod && own == 0) {
        const bool released = *static_cast<const bool*>(arguments[3]);
        if (!released) {
            hold(nullptr);
        }
        return -1;
    }
    return own;
}

void InputOrder::hold(std::unique_ptr<QInputMethodEvent> text) {
    held_.push_back({pressed_, std::move(text)});
    deliverLater();
}

void InputOrder::deliverLater() {
    const auto deliver = [this] { deliverHeld(); };
    QMetaObject::invokeMethod(this, deliver, Qt::QueuedConnection);
}

/// A key that fcitx5 has sent back has no time. The texts before its place precede it, those after it follow later.
void InputOrder::prepare(std::uint32_t time, QEvent::Type type) {
    if (time != 0) {
        deliverUntil(time);
    } else if (type == QEvent::ShortcutOverride) {
        deliverHeld();
        if (!held_.empty()) {
            held_.pop_front();
            deliverLater();
        }
    }
}

void InputOrder::deliverUntil(std::uint32_t time) {
    while (!held_.empty() && !isLater(held_.front().pressed, time)) {
        deliverFirst();
    }
    if (plugIn_ != nullptr && !isLater(pressed_, time)) {
        QCoreApplication::sendPostedEvents(plugIn_, QEvent::MetaCall);
    }
}

/// Stops at the place of a key, which has not been delivered yet.
void InputOrder::deliverHeld() {
    while (!held_.empty() && held_.front().text != nullptr) {
        deliverFirst();
    }
}

void InputOrder::deliverFirst() {
    const Held first = std::move(held_.front());
    held_.pop_front();
    QObject* focused = QGuiApplication::focusObject();
    if (first.text != nullptr && focused != nullptr) {
        const FlagGuard delivering(delivering_);
        QCoreApplication::sendEvent(focused, first.text.get());
    }
}

}  // namespace orv
