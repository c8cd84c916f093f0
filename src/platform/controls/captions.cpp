#include "platform/controls/captions.h"

#include <utility>

#include "platform/machine/window_system.h"
#include "platform/services.h"

namespace orv {

Label::Label(ControlOwner& owner, std::string_view name, const LabelDesign& design, int index)
    : Control(owner, name, index, ControlKind::Label),
      design_(design),
      caption_(design.caption),
      fontSize_(design.fontSize) {
    Control::design({}, true, design.visible);
}

void Label::setCaption(std::string caption) {
    caption_ = std::move(caption);
    notifyObserver();
}

void Label::setFontSize(int points) {
    fontSize_ = points;
    notifyObserver();
}

Button::Button(ControlOwner& owner, std::string_view name, const ButtonDesign& design, int index)
    : Control(owner, name, index, ControlKind::Button), design_(design), caption_(design.caption) {
    setTabRank(design.tabRank);
    if (!design.shortcut.empty()) {
        addShortcut(std::string(design.shortcut));
    }
}

void Button::addShortcut(std::string keys) { shortcuts_.push_back(std::move(keys)); }

void Button::setMarked(bool marked) {
    marked_ = marked;
    notifyObserver();
}

void Button::press() {
    if (usable() && owner().ownerEnabled()) {
        services().windows->commitComposition();
        onClick.raise();
    }
}

}  // namespace orv
