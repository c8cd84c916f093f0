#pragma once

#include <cstdlib>
#include <memory>

#include "fuzz/fuzz_target.h"
#include "support/fixture.h"

namespace orv::test {

/// The whole system without a screen.
class OfficeRun : public SystemTest {
public:
    void TestBody() override {}
};

inline std::unique_ptr<OfficeRun> theOffice;

/// The office of a target, one for all of its inputs. There is one at a time; the last one goes before what it rests
/// on.
template <class Office>
Office& officeOf() {
    if (dynamic_cast<Office*>(theOffice.get()) == nullptr) {
        theOffice.reset();
        theOffice = std::make_unique<Office>();
        std::atexit([] { theOffice.reset(); });
    }
    return static_cast<Office&>(*theOffice);
}

}  // namespace orv::test
