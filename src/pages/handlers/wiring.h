#pragma once

namespace orv {

/// The one list of every tie from an event of a page to its handler. Holds for the pages made from now on.
void wirePages();

}  // namespace orv
