#pragma once

#include <gtest/gtest.h>

#include "adapters/text/cp932.h"
#include "platform/forms/form_host.h"
#include "platform/services.h"
#include "support/failure_of.h"
#include "support/fake_windows.h"

namespace orv {

/// What controls and forms ask for: the code page, a form host, and windows that nobody sees.
class FormTest : public testing::Test {
protected:
    FormTest() {
        services() = {};
        services().codePage = &codePage_;
        services().forms = &forms;
        services().windows = &windows;
    }
    ~FormTest() override { services() = {}; }

    ScriptedWindows windows;
    FormHost forms;

private:
    Cp932 codePage_;
};

}  // namespace orv
