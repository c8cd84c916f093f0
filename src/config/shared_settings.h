#pragma once

#include "config/cls_com.h"
#include "config/cls_multi_com.h"

namespace orv {

/// Returns the one object for folders, file names and settings, created at first use.
cls_Com& com();

/// Returns the one object for the settings of sending, created at first use.
cls_Multi_Com& multiCom();

/// Deletes both objects and the globals of the profile loader. For test fixtures only.
void dropSharedSettings();

}  // namespace orv
