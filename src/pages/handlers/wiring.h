#pragma once

namespace orv {

/// Connects the events of all pages to their handlers. Applies to pages created from now on.
void wirePages();

}  // namespace orv
