#include <QDropEvent>
#include <QImage>
#include <QMimeData>
#include <QPainter>
#include <QUrl>

#include "adapters/qt/views/qt_text.h"
#include "adapters/qt/views/views.h"

namespace orv {
namespace {

constexpr Colour kEmpty{0xf4f4f4};
constexpr Colour kEdge{0x996666};

/// Paints the picture at its destination; what has been scaled is kept until the picture or the size changes.
class PictureArea : public QWidget {
public:
    PictureArea(ImageControl& image, QWidget* page, const PageScale& scale)
        : QWidget(page), image_(image), scale_(scale) {
        setAcceptDrops(true);
    }

protected:
    void dragEnterEvent(QDragEnterEvent* event) override {
        event->setAccepted(image_.acceptsDrops() && !droppedFile(*event).isEmpty());
    }
    void dropEvent(QDropEvent* event) override {
        event->acceptProposedAction();
        image_.drop(droppedFile(*event).toStdString());
    }
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), toQt(kEmpty));
        if (image_.picture()) {
            paintPicture(painter);
        }
        painter.setPen(toQt(kEdge));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }

private:
    /// The first of them, where several are dropped; empty for what is no file.
    static QString droppedFile(const QDropEvent& event) {
        const QList<QUrl> files = event.mimeData()->urls();
        return files.isEmpty() ? QString() : files.front().toLocalFile();
    }

    void paintPicture(QPainter& painter) {
        const QRect target = scale_.box(image_.dstRect());
        const QSize size = (QSizeF(target.size()) * devicePixelRatioF()).toSize();
        if (size.isEmpty()) {
            return;
        }
        if (shown_ != image_.picture() || scaled_.size() != size) {
            shown_ = image_.picture();
            scaled_ = scaledTo(size);
        }
        painter.setClipRect(scale_.box(image_.dstClipRect()));
        painter.drawImage(target, scaled_);
    }

    QImage scaledTo(QSize size) const {
        const int width = std::min(size.width(), shown_->width());
        const int height = std::min(size.height(), shown_->height());
        const Pixels pixels = shown_->scaled(width, height);
        const QImage image(reinterpret_cast<const uchar*>(pixels.argb.data()), pixels.width, pixels.height,
                           QImage::Format_RGB32);
        return image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }

    ImageControl& image_;
    PageScale scale_;
    std::shared_ptr<const Picture> shown_;
    QImage scaled_;
};

class ImageView : public ControlView {
public:
    ImageView(ImageControl& control, PictureArea* area) : ControlView(control, area) {}

private:
    void show() override { widget().update(); }
};

}  // namespace

std::unique_ptr<ControlView> makeImageView(ImageControl& control, QWidget* page, const PageScale& scale) {
    return std::make_unique<ImageView>(control, new PictureArea(control, page, scale));
}

}  // namespace orv
