#include "adapters/pictures/picture_files.h"

#include <gtest/gtest.h>

#include "adapters/pixels/picture_header.h"
#include "adapters/raster/raster_formats.h"
#include "platform/run_time_error.h"
#include "platform/waiting.h"
#include "support/made_pictures.h"

namespace orv::test {
namespace {

class PictureFilesTest : public testing::Test {
protected:
    PictureFolder folder_;
    PictureFiles pictures_{folder_};
};

TEST_F(PictureFilesTest, TakesJpegColoursAsTheyAreMeant) {
    const struct {
        std::string name;
        JpegRecipe recipe;
        std::vector<std::string> colours;
        int bits;
    } cases[] = {
        {"grey", {.input = JCS_GRAYSCALE, .stored = JCS_GRAYSCALE}, {"dark", "other", "dark", "white"}, 8},
        {"rgb", {.stored = JCS_RGB}, kAsMade, 24},
        {"adobe print", {.input = JCS_CMYK, .stored = JCS_CMYK}, kAsMade, 32},
        {"adobe print, luminance", {.input = JCS_CMYK, .stored = JCS_YCCK}, kAsMade, 32},
        {"plain print", {.input = JCS_CMYK, .stored = JCS_CMYK, .adobe = false}, kAsMade, 32},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(one.name);
        const std::string path = folder_.keep("a.jpg", madeJpeg(one.recipe));
        EXPECT_EQ(pictures_.info(path).bits, one.bits);
        EXPECT_EQ(quarters(pictures_.load(path)->scaled(32, 24)), one.colours);
    }
}

TEST_F(PictureFilesTest, TurnsAPhotoUprightAsItsExifSays) {
    const std::vector<std::vector<std::string>> turned{kAsMade,
                                                       kAsMade,
                                                       {"green", "red", "white", "blue"},
                                                       {"white", "blue", "green", "red"},
                                                       {"blue", "white", "red", "green"},
                                                       {"red", "blue", "green", "white"},
                                                       {"blue", "red", "white", "green"},
                                                       {"white", "green", "blue", "red"},
                                                       {"green", "white", "red", "blue"},
                                                       kAsMade};  // 9 is not a code of Exif
    // The only strip needs no row count, so that entry becomes the orientation.
    const ByteVector tiff = tiffBytes({madeImage(64, 48), {}, {}}, {PictureFormat::Tiff, 64, 48, 24, 3});
    for (std::size_t place = 0; place < turned.size(); ++place) {
        const int code = static_cast<int>(place);
        for (const ByteVector& bytes :
             {madeJpeg({.orientation = code}), madeJpeg({.orientation = code, .exifHighFirst = true}),
              withTiffNumber(tiff, 0x16, 0x12, code)}) {
            SCOPED_TRACE(code);
            const std::string path = folder_.keep("a", bytes);
            const bool swapped = code >= 5 && code <= 8;
            const PictureInfo info = pictures_.info(path);
            const auto picture = pictures_.load(path);
            EXPECT_EQ(info.width, swapped ? 48 : 64);
            EXPECT_EQ(info.height, swapped ? 64 : 48);
            EXPECT_EQ(quarters(picture->scaled(info.width, info.height)), turned[place]);
        }
    }
}

TEST_F(PictureFilesTest, LaysTransparentPlacesOnWhite) {
    QImage image(1, 1, QImage::Format_ARGB32);
    image.fill(qRgba(0, 0, 0, 128));
    const std::string path = folder_.pathTo("a.png");
    ASSERT_TRUE(image.save(QString::fromStdString(path), "png"));
    EXPECT_EQ(pictures_.info(path).bits, 32);
    EXPECT_EQ(pictures_.load(path)->scaled(1, 1).argb, std::vector<std::uint32_t>{0xFF7F7F7FU});
}

TEST_F(PictureFilesTest, LetsTheWindowsBePaintedWhileItWorks) {
    const auto painted = [](const std::function<void()>& work) {
        bool done = false;
        setWhileWaiting([&] { done = true; }, {});
        work();
        setWhileWaiting({});
        return done;
    };
    ASSERT_TRUE(madeImage(64, 48).save(QString::fromStdString(folder_.pathTo("a.png")), "png"));
    for (const std::string& path : {folder_.keep("a.jpg", madeJpeg({})), folder_.pathTo("a.png")}) {
        std::unique_ptr<Picture> picture;
        EXPECT_TRUE(painted([&] { picture = pictures_.load(path, {8, 6}); })) << path;
        EXPECT_TRUE(painted([&] { picture->size(8, 6); })) << path;
    }
}

}  // namespace
}  // namespace orv::test
