#pragma once

namespace orv {

/// Fills the tables of functions through which lower rooms call upwards: the log's paths, the pages' handlers. No
/// adapter is in it, so that a test fixture calls the same.
void tieSystem();

}  // namespace orv
