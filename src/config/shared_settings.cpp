#include "config/shared_settings.h"

#include <memory>

namespace orv {
namespace {

std::unique_ptr<cls_Com> theCom;
std::unique_ptr<cls_Multi_Com> theMultiCom;

}  // namespace

cls_Com& com() {
    if (!theCom) {
        theCom = std::make_unique<cls_Com>();
    }
    return *theCom;
}

cls_Multi_Com& multiCom() {
    if (!theMultiCom) {
        theMultiCom = std::make_unique<cls_Multi_Com>(com());
    }
    return *theMultiCom;
}

void dropSharedSettings() {
    theMultiCom.reset();
    theCom.reset();
    gTransmitWorkspace.reset();
    gTransmitDatabase.clear();
}

}  // namespace orv
