#pragma once

#include "config/cls_com.h"
#include "config/cls_multi_com.h"

namespace orv {

/// The one object for every folder, file name and setting; made at first use.
cls_Com& com();

/// The one object for what concerns sending; made at first use.
cls_Multi_Com& multiCom();

/// Forgets both objects and the globals of the profile loader. Only a test fixture starts over like this.
void dropSharedSettings();

}  // namespace orv
