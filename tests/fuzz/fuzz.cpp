// The fuzzer's own program: ORV_FUZZ_TARGET names the target.
#include <algorithm>
#include <cstdlib>

#include "fuzz/fuzz_target.h"

namespace {

orv::test::FuzzTarget chosen() {
    const char* name = std::getenv("ORV_FUZZ_TARGET");
    const auto targets = orv::test::fuzzTargets();
    const auto found = std::ranges::find(targets, name == nullptr ? "" : name, &orv::test::FuzzTarget::name);
    if (found == targets.end()) std::exit(2);
    return *found;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count) {
    static const auto target = chosen();
    target.run({bytes, bytes + count});
    return 0;
}
