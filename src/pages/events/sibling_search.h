#pragma once

#include <string>
#include <vector>

#include "platform/controls/captions.h"
#include "platform/controls/text_input.h"
#include "platform/forms/form.h"

namespace orv {

/// A search that a sibling program does for a page.
struct SiblingSearch {
    std::string program;
    /// Inputs whose texts the program gets.
    std::vector<const TextInput*> known;
    /// What the program fills, by handle: text inputs and labels.
    std::vector<Control*> filled;
    /// The program presses a key on it when it has finished.
    Button& button;
    /// What the program's window is called.
    std::string title;
};

/// Disables the form, which then refers to the program's window, and starts the program. What it sends is kept back
/// until its key and then put into the controls at once, as far as they would take it from the operator; so a program
/// that dies on its way leaves nothing half done. The key is pressed for a program that ends without it, and when the
/// operator presses the form's close box. A failure leaves the form enabled.
void startSearch(Form& form, const SiblingSearch& search);

/// The operator goes on at `next`. The key that ended the search does nothing more.
void goOnAfterSearch(Control& next, int& key);

}  // namespace orv
