#pragma once

#include <string>
#include <variant>
#include <vector>

#include "platform/controls/captions.h"
#include "platform/controls/text_input.h"
#include "platform/forms/form.h"

namespace orv {

/// A control that a sibling program fills.
using FilledControl = std::variant<TextInput*, Label*>;

/// A search that a sibling program does for a page.
struct SiblingSearch {
    std::string program;
    /// Inputs whose texts are passed to the program.
    std::vector<const TextInput*> known;
    /// The controls that the program fills, by handle.
    std::vector<FilledControl> filled;
    /// The program presses a key on this button when it has finished.
    Button& button;
    /// The title of the program's window.
    std::string title;
};

/// Disables the form, shows a reference to the program's window, and starts the program. Its texts are kept until it
/// sends the key. Then they are put in the controls, as far as the operator could type them. A program that crashes
/// therefore leaves no partial result. The key is also pressed if the program ends without it or the operator uses the
/// form's close box. A failure enables the form again.
void startSearch(Form& form, const SiblingSearch& search);

/// Moves the focus to `next`. The key that ended the search has no further effect.
void goOnAfterSearch(Control& next, int& key);

}  // namespace orv
