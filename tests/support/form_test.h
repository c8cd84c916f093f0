#pragma once

#include <gtest/gtest.h>

#include "adapters/text/cp932.h"
#include "platform/forms/form_host.h"
#include "platform/services.h"
#include "support/catch_failure.h"
#include "support/fake_windows.h"

namespace orv {

/// The services that controls and forms need: the code page, a form host, and invisible windows.
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
