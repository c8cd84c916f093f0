#include <QApplication>
#include <QDir>
#include <QDropEvent>
#include <QImage>
#include <QMimeData>
#include <QPainter>
#include <QTimer>
#include <QUrl>
#include <QWheelEvent>
#include <functional>

#include "adapters/qt/views/accessibility.h"
#include "adapters/qt/views/qt_text.h"
#include "adapters/qt/views/views.h"

namespace orv {
namespace {

constexpr Colour kEmpty{0xf4f4f4};
// One notch of the wheel, 120 units, scrolls 30 design pixels.
constexpr int kWheelStep = 4;

/// Paints the picture at its destination. Keeps the scaled image until the picture or the size changes.
class PictureArea : public QWidget, public AccessibleRole {
public:
    PictureArea(ImageControl& image, QWidget* page, const PageScale& scale)
        : QWidget(page), image_(image), scale_(scale) {
        setAcceptDrops(true);
    }

    /// Receives the path of the file in the encoding of the machine.
    std::function<void(std::string)> onDrop;

    QAccessible::Role accessibleRole() const override { return QAccessible::Graphic; }

protected:
    void dragEnterEvent(QDragEnterEvent* event) override { answer(*event); }
    void dragMoveEvent(QDragMoveEvent* event) override { answer(*event); }
    void dropEvent(QDropEvent* event) override {
        answer(*event);
        if (event->isAccepted() && onDrop) {
            onDrop(droppedFile(*event).toStdString());
        }
    }
    void wheelEvent(QWheelEvent* event) override {
        image_.scrollBy(-event->angleDelta().x() / kWheelStep, -event->angleDelta().y() / kWheelStep);
    }
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const QRegion all(rect());
        painter.setClipRegion(image_.backErase() || !image_.picture() ? all : all - pictureArea());
        painter.fillRect(rect(), toQt(kEmpty));
        if (image_.picture()) {
            paintPicture(painter);
        }
        painter.setClipping(false);
        painter.setPen(toQt(kBar));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }

private:
    /// Leaves the file to its source, which would delete it after a move. Sources take the answer to the last movement.
    void answer(QDropEvent& event) const {
        event.setDropAction(Qt::CopyAction);
        event.setAccepted(takes(event));
    }
    /// Takes no drop while a dialog or a notice is open or the page is working.
    bool takes(const QDropEvent& event) const {
        const QWidget* modal = QApplication::activeModalWidget();
        return isEnabled() && image_.canDrop() && (modal == nullptr || modal == window()) &&
               !droppedFile(event).isEmpty();
    }
    /// Returns the dropped file. Empty for anything that is not a file, and for several files, because it is not clear
    /// which is meant.
    static QString droppedFile(const QDropEvent& event) {
        const QList<QUrl> files = event.mimeData()->urls();
        return files.size() == 1 ? QDir::toNativeSeparators(files.front().toLocalFile()) : QString();
    }

    QRect pictureArea() const { return scale_.box(image_.scrolledRect()) & scale_.box(image_.dstClipRect()); }

    void paintPicture(QPainter& painter) {
        const QRect target = scale_.box(image_.scrolledRect());
        const QSize size = (QSizeF(target.size()) * devicePixelRatioF()).toSize();
        if (size.isEmpty()) {
            return;
        }
        if (shown_ != image_.picture() || scaled_.size() != size) {
            shown_ = image_.picture();
            scaled_ = scaledTo(size);
        }
        painter.setClipRect(pictureArea());
        painter.drawImage(target, scaled_);
    }

    QImage scaledTo(QSize size) const {
        const int width = std::min(size.width(), shown_->width());
        const int height = std::min(size.height(), shown_->height());
        const Pixels pixels = shown_->scaled(width, height);
        const QImage borrowed(reinterpret_cast<const uchar*>(pixels.argb.data()), pixels.width, pixels.height,
                              QImage::Format_RGB32);
        // An image that is scaled to its own size would still use the borrowed pixels after they are gone.
        return borrowed.copy().scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }

    ImageControl& image_;
    PageScale scale_;
    std::shared_ptr<const Picture> shown_;
    QImage scaled_;
};

class ImageView : public ControlView {
public:
    ImageView(ImageControl& control, PictureArea* area) : ControlView(control, area), image_(control) {
        area->onDrop = [this](std::string file) { dropLater(std::move(file)); };
    }

private:
    /// Handles the file after the drop, because the program it comes from waits until the drop is over.
    void dropLater(std::string file) {
        QTimer::singleShot(0, this, [this, file = std::move(file)] {
            if (!released()) {
                image_.drop(file);
            }
        });
    }
    void show() override { widget().update(); }

    ImageControl& image_;
};

}  // namespace

std::unique_ptr<ControlView> makeViewFor(ImageControl& control, QWidget* page, const PageScale& scale) {
    return std::make_unique<ImageView>(control, new PictureArea(control, page, scale));
}

}  // namespace orv
