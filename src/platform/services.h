// What the component needs of its surroundings besides the database: handed to it when it is made.
#pragma once

#include <string>

#include <vexnumkr/database_access.h>
#include <vexnumkr/host_components.h>

#include "platform/forms.h"
#include "platform/progress_display.h"

namespace vexnumkr {

/// Tells today's date, so that tests can set it.
class Clock {
 public:
  virtual ~Clock() = default;
  /// The local date as "yyyymmdd".
  virtual std::string today() const = 0;

 protected:
  Clock() = default;
  Clock(const Clock&) = default;
  Clock& operator=(const Clock&) = default;
};

/// All borrowed; they outlive the component object that is made with them.
struct Services {
  FormsToolkit& forms;
  HostComponents& host;
  const Clock& clock;
  ProgressDisplay* progress = nullptr;  ///< null where nobody is to see any
  DatabaseAccess access = DatabaseAccess::rowByRow;
};

}  // namespace vexnumkr
