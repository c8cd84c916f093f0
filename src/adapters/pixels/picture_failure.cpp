#include "adapters/pixels/picture_failure.h"

#include <array>
#include <utility>

namespace orv {
namespace {

constexpr auto kTexts = std::to_array<std::pair<PictureFailure, const char*>>({
    {PictureFailure::NotAFile, "ファイルではないため、画像として読み込めません。"},
    {PictureFailure::Empty, "ファイルの中身が空のため、画像として読み込めません。"},
    {PictureFailure::UnknownFormat,
     "画像ファイルではないか、対応していない形式です。(JPEG、PNG、BMP、GIF、TIFFが使えます。)"},
    {PictureFailure::Damaged, "画像ファイルが壊れているか、途中で切れています。"},
    {PictureFailure::TooManyPixels, "画像の画素数が多すぎます。(1億画素まで使えます。)"},
    {PictureFailure::UnsupportedKind, "この種類のJPEG画像(12ビットなど)には対応していません。"},
    {PictureFailure::FileTooLarge, "画像ファイルが大きすぎます。(500MBまで使えます。)"},
    {PictureFailure::NeedsTooMuchMemory, "画像を開くためのメモリが足りません。"},
    {PictureFailure::NotWritable,
     "この種類の画像は、元の形式では保存できません。JPEGなどに変換してから選択してください。"},
});

}  // namespace

RunTimeError pictureError(PictureFailure failure) {
    for (const auto& [known, text] : kTexts) {
        if (known == failure) {
            return RunTimeError(static_cast<int>(failure), text);
        }
    }
    return RunTimeError(Failure::Internal);
}

}  // namespace orv
