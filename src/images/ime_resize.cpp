#include "images/ime_resize.h"

#include <memory>
#include <utility>

#include "core/record/globals.h"
#include "images/file_size_text.h"
#include "images/frm_img_common.h"
#include "images/image_fit.h"
#include "images/quality_search.h"
#include "logging/trap.h"
#include "platform/forms/form_host.h"
#include "platform/machine/file_system.h"
#include "platform/scope.h"
#include "platform/services.h"

namespace orv {
namespace {

/// Leaves the texts empty for a missing file, which the fitting reports.
void readFigures(ImageControl& image) {
    if (!services().fileSystem->exists(gImgSrcFile)) {
        return;
    }
    image.getFileInfo(gImgSrcFile);
    gImgSrcSizeText = PF_GetFileSizeString(image.infoSizeDisk());
    gImgSrcHeightText = std::to_string(image.infoHeight());
    gImgSrcWidthText = std::to_string(image.infoWidth());
    gImgQualityText = "255/255";
}

/// The loaded dialog, unloaded when it leaves scope. The form host keeps the form until no event is running.
class Confirmation : NonCopyable {
public:
    Confirmation() { services().forms->load(*form_); }
    ~Confirmation() {
        services().forms->unload(*form_, UnloadMode::Code);
        services().forms->retire(std::move(form_));
    }
    void ask() { services().forms->showModal(*form_); }

private:
    std::unique_ptr<frm_ImgCommon> form_ = std::make_unique<frm_ImgCommon>();
};

/// False if the dialog could not be loaded.
bool confirmed() {
    gImgLoaded = false;
    Confirmation dialog;
    if (gImgLoaded) {
        dialog.ask();
    }
    return gImgLoaded;
}

}  // namespace

bool bas_Image::PF_ImeResize(const std::string& source, ImageControl& image, std::string& target) {
    return trapped("[ PF_ImeResize ] ", [&] {
        gImgSrcFile = source;
        gImgDstFile = target;
        readFigures(image);
        bool changed = false;
        if (!PF_ResizeImePic(image, changed) || !PF_ChangeQFactor(image, changed)) {
            return false;
        }
        if (changed && !confirmed()) {
            return false;
        }
        target = gImgDstFile;
        return true;
    });
}

}  // namespace orv
