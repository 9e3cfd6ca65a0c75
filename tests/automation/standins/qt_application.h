// Qt in the process of a host that knows nothing of it.
#pragma once

namespace vexnumkr::standins {

/// Sees to it that this library has the application object that the database adapter needs. It and
/// the library stay until the process ends, on the thread of the first call.
void requireQtApplication();

}  // namespace vexnumkr::standins
