#pragma once

#include <memory>
#include <vector>

#include "platform/forms/form.h"

namespace orv {

inline constexpr int kPointerDefault = 0;
inline constexpr int kPointerHourglass = 11;

/// Does everything to a form that is more than its own state, and keeps the collection of loaded forms in the order of
/// their loading. The windows behind it are the window system's.
class FormHost {
public:
    FormHost() = default;
    FormHost(const FormHost&) = delete;
    FormHost& operator=(const FormHost&) = delete;
    ~FormHost() = default;

    /// Makes the window, hidden, and raises load. Nothing on a form that is loaded.
    void load(Form& form);
    /// Modeless; loads first where that has not happened. Gives the focus to the first input field. A form that its
    /// own load unloads is not shown.
    void show(Form& form);
    /// Returns when the form has been unloaded.
    void showModal(Form& form);
    /// Raises query-unload and, unless that keeps the form, unload; closes the window. False: the form was kept.
    bool unload(Form& form, UnloadMode mode);

    const std::vector<Form*>& forms() const { return forms_; }
    bool isLoaded(const Form& form) const;
    /// The form that the operator works with: the one shown last that is still loaded. Null when there is none.
    Form* activeForm() const;

    int pointer() const { return pointer_; }
    void setPointer(int pointer);

    /// Keeps a form that has been unloaded, perhaps by a handler of its own, until no event runs any more.
    void retire(std::unique_ptr<Form> form) { retired_.push_back(std::move(form)); }
    void sweep() { retired_.clear(); }

private:
    /// The form is the active one from now on; false when its own load has unloaded it.
    bool loadToShow(Form& form);

    std::vector<Form*> forms_;
    std::vector<Form*> shown_;
    std::vector<std::unique_ptr<Form>> retired_;
    int pointer_ = kPointerDefault;
};

}  // namespace orv
