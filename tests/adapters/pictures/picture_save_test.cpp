#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QImage>

#include "adapters/pictures/made_pictures.h"
#include "adapters/pictures/picture_failure.h"
#include "adapters/pictures/picture_files.h"
#include "adapters/pictures/quarters.h"

namespace orv::test {
namespace {

class PictureSaveTest : public testing::Test {
protected:
    /// Brought to a size, saved beside and read again.
    std::unique_ptr<Picture> through(const std::string& path, int width, int height, int quality = 2) const {
        const auto picture = pictures_.load(path, {width, height});
        picture->size(width, height);
        const PictureInfo info = pictures_.info(path);
        picture->save(target(), info.format, info.bits, quality);
        return pictures_.load(target());
    }
    std::string target() const { return folder_.pathOf("saved"); }
    std::string keptByQt(const QImage& image, const char* format) const {
        const std::string path = folder_.pathOf(std::to_string(image.format()) + "." + format);
        EXPECT_TRUE(image.save(QString::fromStdString(path), format));
        return path;
    }

    PictureFolder folder_;
    PictureFiles pictures_{folder_};
};

QImage fourColours(QImage::Format format) {
    const ByteVector png = madeByQt("png", 640, 480);
    return QImage::fromData(png.data(), static_cast<int>(png.size())).convertToFormat(format);
}

TEST_F(PictureSaveTest, KeepsFormatAndDepthAtEverySize) {
    const QList<QRgb> table{kRed, kGreen, kBlue, kWhite};
    const QImage indexed = fourColours(QImage::Format_RGB32).convertToFormat(QImage::Format_Indexed8, table);
    const std::string paths[] = {
        folder_.keep("a.jpg", madeJpeg({.width = 640, .height = 480})),
        folder_.keep("b.jpg", madeJpeg({.width = 640, .height = 480, .input = JCS_CMYK, .stored = JCS_CMYK})),
        folder_.keep("c.jpg", madeJpeg({.width = 640, .height = 480, .input = JCS_CMYK, .stored = JCS_YCCK})),
        folder_.keep("d.jpg",
                     madeJpeg({.width = 640, .height = 480, .input = JCS_CMYK, .stored = JCS_CMYK, .adobe = false})),
        folder_.keep("e.jpg", madeJpeg({.width = 640, .height = 480, .stored = JCS_RGB})),
        keptByQt(fourColours(QImage::Format_RGB32), "png"),
        folder_.keep("f.gif", madeGif(640, 480)),
        folder_.keep("g.bmp", madeRunLengthBmp(400, 300)),
        keptByQt(indexed, "bmp"),
        keptByQt(fourColours(QImage::Format_RGBX64), "png"),
    };
    for (const std::string& path : paths) {
        SCOPED_TRACE(path);
        const PictureInfo info = pictures_.info(path);
        for (const auto& [width, height] : std::vector<std::pair<int, int>>{{64, 48}, {61, 47}, {1, 1}, {16, 300}}) {
            const auto saved = through(path, width, height);
            const PictureInfo now = pictures_.info(target());
            EXPECT_EQ(now.format, info.format);
            EXPECT_EQ(now.bits, info.bits);
            EXPECT_EQ(now.width, width);
            EXPECT_EQ(now.height, height);
            if (width > 2 && height > 2) {
                EXPECT_EQ(quarters(saved->scaled(width, height)), kAsMade);
            }
        }
    }
}

}  // namespace
}  // namespace orv::test
