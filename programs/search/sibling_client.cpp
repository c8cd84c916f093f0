#include "sibling_client.h"

namespace search {
namespace {

constexpr int kPatience = 60000;  // milliseconds
constexpr int kEnter = 13;

}  // namespace

SiblingClient::SiblingClient() {
    socket_.connectToServer(qEnvironmentVariable("ORV_SIBLING_SOCKET"));
    socket_.waitForConnected(kPatience);
}

void SiblingClient::onHangUp(std::function<void()> hungUp) {
    QObject::connect(&socket_, &QLocalSocket::disconnected, &socket_, std::move(hungUp));
}

void SiblingClient::onToFront(std::function<void()> toFront) {
    QObject::connect(&socket_, &QLocalSocket::readyRead, &socket_, [this, toFront = std::move(toFront)] {
        while (socket_.canReadLine()) {
            if (socket_.readLine().trimmed() == "FRONT") {
                toFront();
            }
        }
    });
}

void SiblingClient::setText(const QString& handle, const QString& text) {
    say(QStringLiteral("TEXT %1 %2\n").arg(handle, text));
}

void SiblingClient::pressKey(const QString& handle) {
    say(QStringLiteral("KEY %1 %2\n").arg(handle).arg(kEnter));
    if (connected()) {
        socket_.waitForDisconnected(kPatience);
    }
}

void SiblingClient::say(const QString& line) {
    if (connected()) {
        socket_.write(line.toUtf8());
        socket_.flush();
    }
}

}  // namespace search
