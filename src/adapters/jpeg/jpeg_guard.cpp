#include "adapters/jpeg/jpeg_guard.h"

#include <algorithm>
#include <array>

// jerror.h makes an enumeration of the library's messages, and needs jpeglib.h before it.
#include <jerror.h>

namespace orv {
namespace {

/// The library only warns of these and continues with grey areas. Here they mean that the picture is incomplete.
constexpr auto kFatalWarnings = std::to_array<int>({
    JWRN_JPEG_EOF,
    JWRN_HIT_MARKER,
    JWRN_HUFF_BAD_CODE,
    JWRN_ARITH_BAD_CODE,
    JWRN_MUST_RESYNC,
});

}  // namespace

JpegGuard::JpegGuard() {
    jpeg_std_error(&errors_);
    errors_.error_exit = leave;
    errors_.emit_message = handleMessage;
}

void JpegGuard::watch(j_common_ptr info) {
    info->err = &errors_;
    info->client_data = this;
}

void JpegGuard::leaveWith(j_common_ptr info, int libraryMessage) {
    info->err->msg_code = libraryMessage;
    leave(info);
}

void JpegGuard::leave(j_common_ptr info) { std::longjmp(static_cast<JpegGuard*>(info->client_data)->back_, 1); }

void JpegGuard::handleMessage(j_common_ptr info, int level) {
    const bool warning = level < 0;
    if (warning && std::ranges::count(kFatalWarnings, info->err->msg_code) != 0) {
        leave(info);
    }
}

PictureFailure JpegGuard::failure() const {
    switch (errors_.msg_code) {
        case JERR_OUT_OF_MEMORY:
        case JERR_NO_BACKING_STORE:
            return PictureFailure::NeedsTooMuchMemory;
        case JERR_IMAGE_TOO_BIG:
            return PictureFailure::TooManyPixels;
        case JERR_BAD_PRECISION:
        case JERR_SOF_UNSUPPORTED:
        case JERR_COMPONENT_COUNT:
        case JERR_CONVERSION_NOTIMPL:
        case JERR_ARITH_NOTIMPL:
            return PictureFailure::UnsupportedKind;
        default:
            return PictureFailure::Damaged;
    }
}

}  // namespace orv
