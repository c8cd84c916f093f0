#pragma once

#include "adapters/store/store_connection.h"

namespace orv {

/// Opens the office's store: the file itself, or the server that the text in the file names.
StoreOpener officeStore();

}  // namespace orv
