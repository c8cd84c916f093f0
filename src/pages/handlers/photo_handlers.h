#pragma once

#include <array>
#include <cstddef>
#include <string>

#include "core/record/company_record.h"
#include "platform/controls/captions.h"
#include "platform/controls/combo_box.h"
#include "platform/controls/image_control.h"
#include "platform/controls/text_input.h"
#include "platform/forms/form.h"

namespace orv {

/// The controls of one photo slot. Its index is the slot's number.
struct PhotoControls {
    ImageControl& picture;
    TextInput& path;
    ComboBox& group;
    Button& select;
};

/// The slots of a page and the controls that they share.
struct PhotoSlots {
    Form& page;
    /// Used to fit pictures.
    ImageControl& work;
    std::array<PhotoControls, kPhotoSlots.size()> slots;
};

// An accepted picture goes to the slot's working copy, which the page shows and the next save stores. A rejection, a
// cancel or a failure leaves the slot unchanged. The page takes no other input while a picture is fitted.

/// Chooses a file in the open dialog.
void btm_PhotoSelect_Click(const PhotoSlots& photos, std::size_t slot);
/// Called when `file` has been dropped on the picture.
void pic_PhotoFile_OLEDrop(const PhotoSlots& photos, std::size_t slot, const std::string& file);
/// Empties the slot if the operator agrees. Deletes no file.
void btm_PhotoDel_Click(const PhotoSlots& photos, std::size_t slot);

}  // namespace orv
