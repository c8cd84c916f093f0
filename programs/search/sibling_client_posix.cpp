#include <QLocalSocket>

#include "sibling_client.h"

namespace search {
namespace {

constexpr int kPatience = 60000;  // milliseconds
constexpr int kEnter = 13;

}  // namespace

/// A local socket, whose address is in the environment.
class SiblingClient::Link : public QLocalSocket {
public:
    void say(const QString& line) {
        if (state() == ConnectedState) {
            write(line.toUtf8());
            flush();
        }
    }
};

SiblingClient::SiblingClient(const QString&) : link_(std::make_unique<Link>()) {
    link_->connectToServer(qEnvironmentVariable("ORV_SIBLING_SOCKET"));
    link_->waitForConnected(kPatience);
}

SiblingClient::~SiblingClient() = default;

bool SiblingClient::connected() const { return link_->state() == QLocalSocket::ConnectedState; }

void SiblingClient::onHangUp(std::function<void()> hungUp) {
    QObject::connect(link_.get(), &QLocalSocket::disconnected, link_.get(), std::move(hungUp));
}

void SiblingClient::onToFront(std::function<void()> bringToFront) {
    QObject::connect(link_.get(), &QLocalSocket::readyRead, link_.get(),
                     [this, bringToFront = std::move(bringToFront)] {
                         while (link_->canReadLine()) {
                             if (link_->readLine().trimmed() == "FRONT") {
                                 bringToFront();
                             }
                         }
                     });
}

void SiblingClient::setText(const QString& handle, const QString& text) {
    link_->say(QStringLiteral("TEXT %1 %2\n").arg(handle, text));
}

void SiblingClient::pressKey(const QString& handle) {
    link_->say(QStringLiteral("KEY %1 %2\n").arg(handle).arg(kEnter));
    if (connected()) {
        link_->waitForDisconnected(kPatience);
    }
}

}  // namespace search
