#pragma once

// jpeglib.h needs this header before it.
#include <cstdio>

#include <jpeglib.h>

#include <csetjmp>

#include "adapters/pixels/picture_failure.h"
#include "platform/scope.h"

namespace orv {

/// Handles the JPEG library's errors. They return by a long jump, which skips destructors. Each call therefore uses
/// `guarded`, whose step has only plain values.
class JpegGuard : NonCopyable {
public:
    JpegGuard();

    /// Makes the library's object report its errors here.
    void watch(j_common_ptr info);

    template <typename Step>
    void guarded(Step step) {
        if (setjmp(back_) != 0) {
            throw pictureError(failure());
        }
        step();
    }

    /// Ends the current step as if the library had reported this message.
    [[noreturn]] static void leaveWith(j_common_ptr info, int libraryMessage);

private:
    [[noreturn]] static void leave(j_common_ptr info);
    static void handleMessage(j_common_ptr info, int level);
    PictureFailure failure() const;

    jpeg_error_mgr errors_{};
    std::jmp_buf back_{};
};

}  // namespace orv
