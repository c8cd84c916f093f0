#include "platform/forms/form_host.h"

#include <algorithm>

#include "platform/machine/window_system.h"
#include "platform/services.h"

namespace orv {

void FormHost::load(Form& form) {
    if (form.loaded_) {
        return;
    }
    services().windows->open(form);
    form.loaded_ = true;
    forms_.push_back(&form);
    form.onLoad.raise();
}

bool FormHost::loadToShow(Form& form) {
    load(form);
    if (!form.loaded_) {
        return false;
    }
    form.visible_ = true;
    std::erase(shown_, &form);
    shown_.push_back(&form);
    return true;
}

void FormHost::show(Form& form) {
    if (!loadToShow(form)) {
        return;
    }
    services().windows->show(form);
    if (form.activeControl() == nullptr && form.enabled()) {
        form.focusFirst();
    }
}

void FormHost::showModal(Form& form) {
    if (!loadToShow(form)) {
        return;
    }
    if (form.activeControl() == nullptr) {
        form.focusFirst();
    }
    services().windows->runModal(form);
}

void FormHost::unload(Form& form, UnloadMode mode) {
    if (!form.loaded_) {
        return;
    }
    bool kept = false;
    form.onQueryUnload.raise(kept, mode);
    // The handler might have unloaded every form, including this one.
    if (kept || !form.loaded_) {
        return;
    }
    form.loaded_ = false;
    form.visible_ = false;
    std::erase(forms_, &form);
    std::erase(shown_, &form);
    form.onUnload.raise();
    form.active_ = nullptr;
    form.awaited_ = nullptr;
    services().windows->close(form);
}

bool FormHost::isLoaded(const Form& form) const {
    return std::find(forms_.begin(), forms_.end(), &form) != forms_.end();
}

Form* FormHost::activeForm() const { return shown_.empty() ? nullptr : shown_.back(); }

void FormHost::setPointer(int pointer) {
    pointer_ = pointer;
    services().windows->showPointer(pointer == kPointerHourglass);
}

}  // namespace orv
