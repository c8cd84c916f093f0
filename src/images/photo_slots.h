#pragma once

#include <array>
#include <cstddef>
#include <string>

#include "platform/controls/captions.h"
#include "platform/controls/combo_box.h"
#include "platform/controls/image_control.h"
#include "platform/controls/text_input.h"
#include "platform/forms/form.h"

namespace orv {

/// The controls of one photo slot, whose number is its place.
struct PhotoControls {
    ImageControl& picture;
    TextInput& path;
    ComboBox& group;
    Button& select;
};

/// The slots of a page, and what they share.
struct PhotoSlots {
    Form& page;
    /// Where a picture is fitted.
    ImageControl& work;
    std::array<PhotoControls, 2> slots;
};

// A picture that is taken goes into the working copy of the slot, which the page then shows and the next save stores. A
// refusal, a cancel and a failure leave the slot as it was. While a picture is fitted the page takes nothing else.

/// Picks a file in the open dialog.
void btm_PhotoSelect_Click(const PhotoSlots& photos, std::size_t slot);
/// `file` has been dropped on the picture.
void pic_PhotoFile_OLEDrop(const PhotoSlots& photos, std::size_t slot, const std::string& file);
/// Empties the slot when the operator agrees. No file is deleted.
void btm_PhotoDel_Click(const PhotoSlots& photos, std::size_t slot);

}  // namespace orv
