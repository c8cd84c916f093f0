#include "platform/controls/control_handles.h"

namespace orv {
namespace {

class CountedHandles : public ControlHandles {
public:
    std::uint32_t allocate() override { return ++last_; }

private:
    std::uint32_t last_ = 0;
};

CountedHandles counted;
ControlHandles* current = &counted;

}  // namespace

void useControlHandles(ControlHandles* handles) { current = handles != nullptr ? handles : &counted; }

ControlHandles& controlHandles() { return *current; }

}  // namespace orv
