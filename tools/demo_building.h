// The demo job's structure: a braced three-storey steel building on a 3 x 2 bay grid, with
// joints in identical and mirrored groups and a few elements that are not live.
#pragma once

#include "suite_files.h"

namespace vorna::tools {

Structure DemoBuilding();

} // namespace vorna::tools
