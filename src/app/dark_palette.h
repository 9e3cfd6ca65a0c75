// The host's windows light on dark.
#pragma once

namespace vexnumkr::app {

/// Gives all windows dark colours, in the style that takes its colours from the palette everywhere.
/// REQUIRES: a QApplication, and no window yet.
void makeDark();

}  // namespace vexnumkr::app
