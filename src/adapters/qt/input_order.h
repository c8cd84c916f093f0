#pragma once

#include <QAbstractNativeEventFilter>
#include <QEvent>
#include <QInputMethodEvent>
#include <QObject>
#include <QPointer>
#include <cstdint>
#include <deque>
#include <memory>

namespace orv {

/// Keeps the texts of ibus and fcitx5 in the order of the keys. Their plug-ins wait for the answer to each key, but the
/// event loop delivers the text later, when the toolkit has read all waiting keys. A key that the input method does not
/// take would overtake the text of the key before it. With fcitx5, the next text would overtake such a key.
class InputOrder : public QObject, public QAbstractNativeEventFilter {
public:
    InputOrder();

    /// Takes the texts of the earlier keys from the event loop before the input method receives the next key.
    bool nativeEventFilter(const QByteArray& kind, void* message, qintptr* result) override;
    /// Delivers the texts of the earlier keys before a key or click.
    bool eventFilter(QObject* watched, QEvent* event) override;
    /// Receives the signal of a key that is sent back.
    int qt_metacall(QMetaObject::Call call, int method, void** arguments) override;

private:
    /// A text, or the place of a key that fcitx5 has sent back.
    struct Held {
        std::uint32_t pressed;
        std::unique_ptr<QInputMethodEvent> text;
    };

    void watch(QObject* plugIn);
    void fetch();
    void hold(std::unique_ptr<QInputMethodEvent> text);
    void deliverLater();
    void prepare(std::uint32_t time, QEvent::Type type);
    void deliverUntil(std::uint32_t time);
    void deliverHeld();
    void deliverFirst();

    /// The plug-in's object whose calls from the input method are delivered by the event loop.
    QPointer<QObject> plugIn_;
    std::deque<Held> held_;
    /// The time of the last key that the input method has received.
    std::uint32_t pressed_ = 0;
    bool fetching_ = false;
    bool delivering_ = false;
};

}  // namespace orv
