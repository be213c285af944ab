#pragma once

#include "data/clsApplication.h"
#include "data/clsDatabase.h"

namespace marvello {

/// The process-wide objects, each made at its first use and made anew when it is used after a release.
clsDatabase& gDatabase();
clsApplication& gApplication();

/// Releases the two at the end of the program, or between tests. Closes the connection.
void releaseGlobals();

}  // namespace marvello
