#include <gtest/gtest.h>

#include <QColor>
#include <QImage>

#include "adapters/jpeg/quality_map.h"
#include "adapters/pictures/picture_files.h"
#include "adapters/pixels/picture_failure.h"
#include "adapters/raster/raster_formats.h"
#include "support/catch_failure.h"
#include "support/made_pictures.h"

namespace orv::test {
namespace {

using std::string_literals::operator""s;

class PictureSaveTest : public testing::Test {
protected:
    /// Resizes the picture, saves it to another file and reads it again.
    std::unique_ptr<Picture> through(const std::string& path, int width, int height) const {
        const auto picture = pictures_.load(path, {width, height});
        picture->size(width, height);
        const PictureInfo info = pictures_.info(path);
        picture->save(target(), info.format, info.bits, 2);
        return pictures_.load(target());
    }
    std::string target() const { return folder_.pathTo("saved"); }
    std::string keptByQt(const QImage& image, const char* format) const {
        const std::string path = folder_.pathTo(std::to_string(image.format()) + "." + format);
        EXPECT_TRUE(image.save(QString::fromStdString(path), format));
        return path;
    }

    std::string keptAsTiff(const QImage& image, int bits) const {
        const PictureHeader header{PictureFormat::Tiff, image.width(), image.height(), bits, 3};
        return folder_.keep(std::to_string(bits) + ".tif", tiffBytes({image, {}, {}}, header));
    }

    PictureFolder folder_;
    PictureFiles pictures_{folder_};
};

constexpr auto kTiff = static_cast<std::int32_t>(PictureFormat::Tiff);

ByteVector deepTiff(QImage::Format format, int channels) {
    QImage image(40, 20, format);
    image.fill(QColor::fromRgba64(0x1234, 0x1234, 0x1234, format == QImage::Format_RGBA64 ? 0x8000 : 0xFFFF));
    return tiffBytes({image, {}, {}}, {PictureFormat::Tiff, 40, 20, 16 * channels, channels});
}

QImage fourColours(QImage::Format format) { return madeImage(640, 480).convertToFormat(format); }

TEST_F(PictureSaveTest, KeepsFormatAndDepthAtEverySize) {
    const QList<QRgb> table{kRed, kGreen, kBlue, kWhite};
    const QImage indexed = fourColours(QImage::Format_RGB32).convertToFormat(QImage::Format_Indexed8, table);
    const std::string runs = folder_.keep("g.bmp", madeRunLengthBmp(400, 300));
    const std::string paths[] = {
        folder_.keep("a.jpg", madeJpeg({.width = 640, .height = 480})),
        folder_.keep("progressive.jpg", madeJpeg({.width = 640, .height = 480, .progressive = true})),
        folder_.keep("b.jpg", madeJpeg({.width = 640, .height = 480, .input = JCS_CMYK, .stored = JCS_CMYK})),
        folder_.keep("d.jpg",
                     madeJpeg({.width = 640, .height = 480, .input = JCS_CMYK, .stored = JCS_CMYK, .adobe = false})),
        keptByQt(fourColours(QImage::Format_RGB32), "png"),
        keptByQt(fourColours(QImage::Format_RGB32), "bmp"),
        folder_.keep("f.gif", madeGif(640, 480)),
        runs,
        keptByQt(indexed, "bmp"),
        keptByQt(fourColours(QImage::Format_RGBX64), "png"),
        keptAsTiff(fourColours(QImage::Format_RGB32), 24),
        keptAsTiff(fourColours(QImage::Format_RGBX64), 48),
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
            EXPECT_TRUE(path != runs || now.sizeDisk < 3000) << "runs, and not a byte each";
            if (width > 2 && height > 2) {
                EXPECT_EQ(quarters(saved->scaled(width, height)), kAsMade);
            }
        }
    }
}

TEST(QualityMap, NoEntryFallsAsTheFactorRises) {
    for (const std::size_t place : {0U, 1U}) {
        for (unsigned basic = 1; basic < 256; ++basic) {
            for (int factor = 3; factor <= 255; ++factor) {
                EXPECT_LE(scaledEntry(place, basic, tableScale(factor - 1)),
                          scaledEntry(place, basic, tableScale(factor)));
            }
        }
    }
    EXPECT_EQ(scaledEntry(1, 99, tableScale(2)), 4U);
    EXPECT_EQ(scaledEntry(1, 10, tableScale(255)), 255U);
}

/// Inserts a segment after the start mark.
ByteVector withSegment(ByteVector jpeg, std::uint8_t marker, const std::string& text) {
    const std::size_t length = text.size() + 2;
    ByteVector segment{0xFF, marker, static_cast<std::uint8_t>(length >> 8), static_cast<std::uint8_t>(length)};
    segment.insert(segment.end(), text.begin(), text.end());
    jpeg.insert(jpeg.begin() + 2, segment.begin(), segment.end());
    return jpeg;
}

TEST_F(PictureSaveTest, TheProfileStaysTheTurnAndThePlaceGo) {
    const std::string profile = "ICC_PROFILE\0\1\1the colours as they are meant"s;
    const ByteVector tagged = withSegment(withSegment(madeJpeg({.orientation = 6}), 0xE2, profile), 0xE1,
                                          "http://ns.adobe.com/xap/1.0/ GPSLatitude 35");
    const std::vector<std::string> upright{"blue", "red", "white", "green"};
    EXPECT_EQ(quarters(through(folder_.keep("a.jpg", tagged), 24, 32)->scaled(24, 32)), upright);
    const std::string bytes = readFile(target());
    EXPECT_NE(bytes.find("the colours as they are"), std::string::npos);
    EXPECT_EQ(bytes.find("GPS"), std::string::npos);
    EXPECT_EQ(bytes.find("Exif"), std::string::npos);
}

/// With a limit below the profile's size, the search ends at the smallest file.
TEST_F(PictureSaveTest, ALargeProfileIsNeverCut) {
    ByteVector jpeg = madeJpeg({});
    for (const char part : {'\2', '\1'}) {
        jpeg = withSegment(jpeg, 0xE2, "ICC_PROFILE\0"s + part + '\2' + std::string(60000, part));
    }
    const auto picture = pictures_.load(folder_.keep("a.jpg", jpeg));
    picture->save(target(), 1, 24, kSmallestQuality);
    const std::string bytes = readFile(target());
    EXPECT_NE(bytes.find(std::string(60000, '\1')), std::string::npos);
    EXPECT_NE(bytes.find(std::string(54000, '\2')), std::string::npos) << "divided at another place";
}

/// The earlier file is replaced by exchanging the names.
TEST_F(PictureSaveTest, EachSaveTakesThePlaceOfTheOneBefore) {
    const auto picture = pictures_.load(folder_.keep("a.jpg", madeJpeg({})));
    std::vector<std::uintmax_t> sizes;
    for (const int quality : {kBestQuality, kSmallestQuality, kBestQuality}) {
        picture->save(target(), 1, 24, quality);
        sizes.push_back(std::filesystem::file_size(target()));
    }
    EXPECT_GT(sizes[0], sizes[1]);
    EXPECT_EQ(sizes[0], sizes[2]);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_.pathTo("")), {}), 2) << "something is left";
}

TEST_F(PictureSaveTest, ADeepTiffKeepsAllBits) {
    for (const auto& [format, channels] :
         {std::pair{QImage::Format_RGBX64, 3}, std::pair{QImage::Format_Grayscale16, 1}}) {
        const std::string path = folder_.keep("deep.tif", deepTiff(format, channels));
        pictures_.load(path)->save(target(), kTiff, 16 * channels, 2);
        EXPECT_EQ(readFile(target()), readFile(path)) << channels;
    }
    const auto picture = pictures_.load(folder_.keep("deep.tif", deepTiff(QImage::Format_RGBA64, 4)));
    EXPECT_EQ(catchFailure([&] { picture->save(target(), kTiff, 64, 2); }),
              static_cast<int>(PictureFailure::NotWritable));
}

TEST_F(PictureSaveTest, RefusesUnsupportedRequestsAndLeavesTheFileUnchanged) {
    constexpr auto kJpeg = static_cast<std::int32_t>(PictureFormat::Jpeg);
    const std::string path = folder_.keep("a.jpg", madeJpeg({.width = 640, .height = 480}));
    const auto picture = pictures_.load(path);
    const auto reduced = pictures_.load(path, {64, 48});
    const std::string existing = folder_.keep("standing", {1, 2, 3});
    const auto invalid = static_cast<int>(Failure::InvalidCall);
    EXPECT_EQ(catchFailure([&] { picture->save(existing, kJpeg, 24, 1); }), invalid);
    EXPECT_EQ(catchFailure([&] { reduced->save(existing, kJpeg, 24, 2); }), invalid);
    EXPECT_NE(catchFailure([&] { picture->save(folder_.pathTo("none/a.jpg"), kJpeg, 24, 2); }), 0);
    EXPECT_EQ(std::filesystem::file_size(existing), 3U);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_.pathTo("")), {}), 2) << "something is left";
}

}  // namespace
}  // namespace orv::test
