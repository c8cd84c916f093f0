#pragma once

#include "adapters/store/store_connection.h"

namespace orv {

/// Opens the office's store: the store file itself, or the server that the file names.
StoreOpener officeStore();

}  // namespace orv
