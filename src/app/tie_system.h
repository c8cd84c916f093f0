#pragma once

namespace orv {

/// Fills the tables of functions through which lower modules call upwards: the paths of the logs, the table of
/// pages. Uses no adapter, so that test fixtures can call it too.
void tieSystem();

}  // namespace orv
