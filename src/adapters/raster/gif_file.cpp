#include "adapters/raster/raster_formats.h"

#include <gif_lib.h>

#include <algorithm>
#include <array>
#include <memory>
#include <span>

#include "adapters/pixels/picture_failure.h"

namespace orv {
namespace {

constexpr std::int64_t kMostPixels = 100'000'000;

void require(bool whole) {
    if (!whole) {
        throw pictureError(PictureFailure::Damaged);
    }
}

// Reading

struct CloseReader {
    void operator()(GifFileType* gif) const { DGifCloseFile(gif, nullptr); }
};
using Reader = std::unique_ptr<GifFileType, CloseReader>;

int readFromFile(GifFileType* gif, GifByteType* bytes, int count) {
    return static_cast<int>(
        std::fread(bytes, 1, static_cast<std::size_t>(count), static_cast<std::FILE*>(gif->UserData)));
}

/// Changes `transparent` only if the extension names a colour.
void readExtension(GifFileType* gif, int& transparent) {
    int code = 0;
    GifByteType* block = nullptr;
    require(DGifGetExtension(gif, &code, &block) == GIF_OK);
    while (block != nullptr) {
        GraphicsControlBlock control{};
        if (code == GRAPHICS_EXT_FUNC_CODE && DGifExtensionToGCB(block[0], block + 1, &control) == GIF_OK) {
            transparent = control.TransparentColor;
        }
        require(DGifGetExtensionNext(gif, &block) == GIF_OK);
    }
}

/// Reads up to and including the first picture's description. Returns the transparent colour or NO_TRANSPARENT_COLOR.
int findPicture(GifFileType* gif) {
    int transparent = NO_TRANSPARENT_COLOR;
    GifRecordType record = UNDEFINED_RECORD_TYPE;
    while (record != IMAGE_DESC_RECORD_TYPE) {
        require(DGifGetRecordType(gif, &record) == GIF_OK && record != TERMINATE_RECORD_TYPE);
        if (record == EXTENSION_RECORD_TYPE) {
            readExtension(gif, transparent);
        }
    }
    require(DGifGetImageDesc(gif) == GIF_OK);
    return transparent;
}

QList<QRgb> readColours(const GifFileType& gif, int transparent) {
    const ColorMapObject* map = gif.Image.ColorMap != nullptr ? gif.Image.ColorMap : gif.SColorMap;
    require(map != nullptr && map->ColorCount > 0);
    QList<QRgb> colours;
    for (const GifColorType& colour : std::span(map->Colors, static_cast<std::size_t>(map->ColorCount))) {
        colours.push_back(qRgb(colour.Red, colour.Green, colour.Blue));
    }
    if (transparent >= 0 && transparent < colours.size()) {
        colours[transparent] = qRgba(0, 0, 0, 0);
    }
    return colours;
}

/// Returns the order in which rows are stored: from the top, or in four passes.
std::vector<int> storedOrder(int height, bool interlaced) {
    constexpr std::array kPasses{std::pair{0, 8}, std::pair{4, 8}, std::pair{2, 4}, std::pair{1, 2}};
    std::vector<int> order;
    for (const auto& [first, step] : std::span(kPasses).first(interlaced ? kPasses.size() : 1)) {
        for (int y = first; y < height; y += interlaced ? step : 1) {
            order.push_back(y);
        }
    }
    return order;
}

void readRows(GifFileType* gif, QImage& canvas) {
    const GifImageDesc& place = gif->Image;
    require(place.Width > 0 && place.Height > 0);
    if (std::int64_t{place.Width} * place.Height > kMostPixels) {
        throw pictureError(PictureFailure::TooManyPixels);
    }
    const int last = static_cast<int>(canvas.colorCount()) - 1;
    std::vector<GifPixelType> row(static_cast<std::size_t>(place.Width));
    for (const int y : storedOrder(place.Height, place.Interlace)) {
        require(DGifGetLine(gif, row.data(), place.Width) == GIF_OK);
        if (place.Top + y < canvas.height() && place.Left < canvas.width()) {
            const int width = std::min(place.Width, canvas.width() - place.Left);
            std::transform(row.begin(), row.begin() + width, canvas.scanLine(place.Top + y) + place.Left,
                           [last](int index) { return static_cast<std::uint8_t>(std::min(index, last)); });
        }
    }
}

// Writing

struct CloseWriter {
    void operator()(GifFileType* gif) const { EGifCloseFile(gif, nullptr); }
};
struct FreeMap {
    void operator()(ColorMapObject* map) const { GifFreeMapObject(map); }
};
using Written = std::vector<std::uint8_t>;

int writeToBytes(GifFileType* gif, const GifByteType* bytes, int count) {
    auto& written = *static_cast<Written*>(gif->UserData);
    written.insert(written.end(), bytes, bytes + count);
    return count;
}

std::unique_ptr<ColorMapObject, FreeMap> makeColourMap(const QList<QRgb>& colours) {
    const int bits = std::max(1, GifBitSize(static_cast<int>(colours.size())));
    std::unique_ptr<ColorMapObject, FreeMap> map(GifMakeMapObject(1 << bits, nullptr));
    require(map != nullptr);
    std::ranges::transform(colours, map->Colors, [](QRgb colour) {
        return GifColorType{static_cast<GifByteType>(qRed(colour)), static_cast<GifByteType>(qGreen(colour)),
                            static_cast<GifByteType>(qBlue(colour))};
    });
    return map;
}

void putTransparent(GifFileType* gif, const QList<QRgb>& colours) {
    const auto transparent = std::ranges::find_if(colours, [](QRgb colour) { return qAlpha(colour) == 0; });
    if (transparent == colours.end()) {
        return;
    }
    const GraphicsControlBlock control{DISPOSAL_UNSPECIFIED, false, 0, static_cast<int>(transparent - colours.begin())};
    std::array<GifByteType, 4> block{};
    EGifGCBToExtension(&control, block.data());
    require(EGifPutExtension(gif, GRAPHICS_EXT_FUNC_CODE, block.size(), block.data()) == GIF_OK);
}

/// Writes everything up to the end mark, which closing writes.
void writePicture(GifFileType* gif, const Raster& raster) {
    EGifSetGifVersion(gif, true);
    const auto map = makeColourMap(raster.colours);
    const int width = raster.image.width();
    const int height = raster.image.height();
    require(EGifPutScreenDesc(gif, width, height, map->BitsPerPixel, 0, map.get()) == GIF_OK);
    putTransparent(gif, raster.colours);
    require(EGifPutImageDesc(gif, 0, 0, width, height, false, nullptr) == GIF_OK);
    for (int y = 0; y < height; ++y) {
        auto row = toIndices(raster, y);
        require(EGifPutLine(gif, row.data(), width) == GIF_OK);
    }
}

}  // namespace

Raster readGif(const OpenFile& file) {
    int failure = 0;
    const Reader gif(DGifOpen(file.fromStart(), readFromFile, &failure));
    require(gif != nullptr);
    const int transparent = findPicture(gif.get());
    Raster raster{QImage(gif->SWidth, gif->SHeight, QImage::Format_Indexed8), readColours(*gif, transparent), {}};
    raster.image.setColorTable(raster.colours);
    const int background = transparent >= 0 ? transparent : gif->SBackGroundColor;
    raster.image.fill(background < raster.colours.size() ? static_cast<unsigned>(background) : 0);
    readRows(gif.get(), raster.image);
    return raster;
}

Written gifBytes(const Raster& raster) {
    Written written;
    {
        int failure = 0;
        const std::unique_ptr<GifFileType, CloseWriter> gif(EGifOpen(&written, writeToBytes, &failure));
        require(gif != nullptr);
        writePicture(gif.get(), raster);
    }
    return written;
}

}  // namespace orv
