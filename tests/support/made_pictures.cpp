#include "support/made_pictures.h"

#include <QBuffer>
#include <algorithm>
#include <array>
#include <stdexcept>

#include "adapters/raster/raster_formats.h"

namespace orv::test {
namespace {

constexpr std::array kQuarters{kRed, kGreen, kBlue, kWhite};
const QList<QRgb> kTable(kQuarters.begin(), kQuarters.end());

std::uint32_t colourAt(int x, int y, int width, int height) {
    return kQuarters.at(static_cast<std::size_t>((y * 2 >= height ? 2 : 0) + (x * 2 >= width ? 1 : 0)));
}

/// Converts a colour to the encoder's input. Print colours have no black. Adobe's programs store them inverted, with
/// 255 for blank paper.
void appendInput(const JpegRecipe& recipe, std::uint32_t colour, ByteVector& row) {
    const bool turn = recipe.input == JCS_CMYK && !recipe.adobe;
    for (const int shift : recipe.input == JCS_GRAYSCALE ? std::vector{8} : std::vector{16, 8, 0}) {
        row.push_back(static_cast<std::uint8_t>((turn ? ~colour : colour) >> shift));
    }
    if (recipe.input == JCS_CMYK) row.push_back(turn ? 0 : 255);
}

ByteVector exifSegment(int orientation, bool highFirst) {
    const auto code = static_cast<std::uint8_t>(orientation);
    if (highFirst) {
        return {'E', 'x', 'i', 'f', 0, 0, 'M', 'M', 0, 42,   0, 0, 0, 8, 0, 1,  // one entry
                1,   18,  0,   3,   0, 0, 0,   1,   0, code, 0, 0, 0, 0, 0, 0};
    }
    return {'E', 'x', 'i', 'f', 0, 0, 'I', 'I', 42,   0, 8, 0, 0, 0, 1, 0,  // one entry
            18,  1,   3,   0,   1, 0, 0,   0,   code, 0, 0, 0, 0, 0, 0, 0};
}

void setUp(jpeg_compress_struct& jpeg, const JpegRecipe& recipe) {
    jpeg.image_width = static_cast<JDIMENSION>(recipe.width);
    jpeg.image_height = static_cast<JDIMENSION>(recipe.height);
    jpeg.in_color_space = recipe.input;
    jpeg.input_components = recipe.input == JCS_GRAYSCALE ? 1 : recipe.input == JCS_CMYK ? 4 : 3;
    jpeg_set_defaults(&jpeg);
    jpeg_set_colorspace(&jpeg, recipe.stored);
    jpeg_set_quality(&jpeg, 95, TRUE);
    jpeg.write_Adobe_marker = recipe.adobe ? jpeg.write_Adobe_marker : FALSE;
    if (recipe.progressive) jpeg_simple_progression(&jpeg);
}

}  // namespace

std::vector<std::string> quarters(const Pixels& pixels) {
    std::vector<std::string> names;
    for (const auto& [x, y] : std::vector<std::pair<int, int>>{{1, 1}, {3, 1}, {1, 3}, {3, 3}}) {
        const auto at = static_cast<std::size_t>(pixels.height * y / 4 * pixels.width + pixels.width * x / 4);
        const std::uint32_t colour = pixels.argb.at(at);
        std::string name = "other";
        for (const auto& [known, text] : std::vector<std::pair<std::uint32_t, std::string>>{
                 {kRed, "red"}, {kGreen, "green"}, {kBlue, "blue"}, {kWhite, "white"}, {0xFF202020, "dark"}}) {
            bool isNear = colour >> 24 == 0xFF;
            for (const int shift : {0, 8, 16}) {
                isNear = isNear && std::abs(static_cast<int>(colour >> shift & 0xFF) -
                                            static_cast<int>(known >> shift & 0xFF)) < 12;
            }
            name = isNear ? text : name;
        }
        names.push_back(name);
    }
    return names;
}

ByteVector changed(ByteVector bytes, std::size_t at, const ByteVector& to) {
    std::ranges::copy(to, bytes.begin() + static_cast<std::ptrdiff_t>(at));
    return bytes;
}

ByteVector withTiffNumber(const ByteVector& tiff, std::uint8_t tag, std::uint8_t newTag, int value) {
    const ByteVector entry{tag, 1, 3, 0, 1, 0, 0, 0};
    const auto at = std::search(tiff.begin(), tiff.end(), entry.begin(), entry.end());
    if (at == tiff.end()) throw std::runtime_error("no such entry");
    return changed(
        tiff, static_cast<std::size_t>(at - tiff.begin()),
        {newTag, 1, 3, 0, 1, 0, 0, 0, static_cast<std::uint8_t>(value), static_cast<std::uint8_t>(value >> 8)});
}

ByteVector madeJpeg(const JpegRecipe& recipe) {
    jpeg_compress_struct jpeg{};
    jpeg_error_mgr errors{};
    jpeg.err = jpeg_std_error(&errors);
    jpeg_create_compress(&jpeg);
    unsigned char* bytes = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&jpeg, &bytes, &size);
    setUp(jpeg, recipe);
    jpeg_start_compress(&jpeg, TRUE);
    if (recipe.orientation != 0) {
        const ByteVector exif = exifSegment(recipe.orientation, recipe.exifHighFirst);
        jpeg_write_marker(&jpeg, JPEG_APP0 + 1, exif.data(), static_cast<unsigned>(exif.size()));
    }
    for (int y = 0; y < recipe.height; ++y) {
        ByteVector row;
        for (int x = 0; x < recipe.width; ++x) {
            appendInput(recipe, colourAt(x, y, recipe.width, recipe.height), row);
        }
        JSAMPROW start = row.data();
        jpeg_write_scanlines(&jpeg, &start, 1);
    }
    jpeg_finish_compress(&jpeg);
    ByteVector made(bytes, bytes + size);
    jpeg_destroy_compress(&jpeg);
    std::free(bytes);
    return made;
}

QImage madeImage(int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) image.setPixel(x, y, colourAt(x, y, width, height));
    }
    return image;
}

ByteVector madeByQt(const char* format, int width, int height) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!madeImage(width, height).save(&buffer, format)) throw std::runtime_error(format);
    return {bytes.begin(), bytes.end()};
}

ByteVector madeGif(int width, int height) {
    constexpr QRgb kTransparent = 0;
    const QList<QRgb> table = kTable + QList<QRgb>{kTransparent};
    return gifBytes({madeImage(width, height).convertToFormat(QImage::Format_Indexed8, kTable), table, {}});
}

ByteVector madeRunLengthBmp(int width, int height) {
    const QImage indexed = madeImage(width, height).convertToFormat(QImage::Format_Indexed8, kTable);
    return bmpBytes({indexed, kTable, {}}, {PictureFormat::Bmp, width, height, 8, 1});
}

std::size_t frameHeader(const ByteVector& jpeg) {
    std::size_t at = 2;
    while (jpeg.at(at + 1) < 0xC0 || jpeg.at(at + 1) > 0xC2) {
        at += 2 + (static_cast<std::size_t>(jpeg.at(at + 2)) << 8 | jpeg.at(at + 3));
    }
    return at;
}

ByteVector withJpegSize(ByteVector jpeg, int width, int height) {
    const std::size_t at = frameHeader(jpeg) + 5;
    return changed(std::move(jpeg), at,
                   {static_cast<std::uint8_t>(height >> 8), static_cast<std::uint8_t>(height),
                    static_cast<std::uint8_t>(width >> 8), static_cast<std::uint8_t>(width)});
}

}  // namespace orv::test
