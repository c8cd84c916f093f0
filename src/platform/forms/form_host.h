#pragma once

#include <memory>
#include <vector>

#include "platform/forms/form.h"
#include "platform/scope.h"

namespace orv {

inline constexpr int kPointerDefault = 0;
inline constexpr int kPointerHourglass = 11;

/// Loads, shows and unloads forms, and keeps the loaded forms in the order of loading. The window system provides the
/// windows.
class FormHost : NonCopyable {
public:
    ~FormHost() = default;

    /// Creates the hidden window and raises load. Does nothing if the form is loaded.
    void load(Form& form);
    /// Shows the form modelessly and loads it first if needed. Focuses the first input field. A form that unloads
    /// itself during load is not shown.
    void show(Form& form);
    /// Returns after the form has been unloaded.
    void showModal(Form& form);
    /// Raises query-unload. Unless a handler keeps the form, raises unload and closes the window.
    void unload(Form& form, UnloadMode mode);

    const std::vector<Form*>& forms() const { return forms_; }
    bool isLoaded(const Form& form) const;
    /// Returns the loaded form that was shown last, or null.
    Form* activeForm() const;

    int pointer() const { return pointer_; }
    void setPointer(int pointer);

    /// Keeps an unloaded form, which its own handler might have unloaded, until no event is running.
    void retire(std::unique_ptr<Form> form) { retired_.push_back(std::move(form)); }
    void sweep() { retired_.clear(); }

private:
    /// Makes the form the active one. False if it unloaded itself during load.
    bool loadToShow(Form& form);

    std::vector<Form*> forms_;
    std::vector<Form*> shown_;
    std::vector<std::unique_ptr<Form>> retired_;
    int pointer_ = kPointerDefault;
};

}  // namespace orv
