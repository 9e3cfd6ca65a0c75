// The origin that an application's circles, assignments and special ranges carry.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "data/origin.h"
#include "numbers/failure.h"

namespace vexnumkr::numbers {

/// "ORB" for application 1, "ORC" for 2. Error (5) for any other: it has no ranges of its own.
inline std::string requiredOrigin(std::int32_t application) {
  const Origin origin(application);
  if (origin.exists()) return origin.Herkunft();
  throw invalidCall("Die Anwendung " + std::to_string(application) +
                    " hat keine eigenen Nummernkreise; möglich sind 1 und 2.");
}

/// The application with that origin; 0 for none.
inline std::int32_t applicationOf(std::string_view origin) {
  for (const std::int32_t application : {1, 2})
    if (origin == Origin(application).Herkunft()) return application;
  return 0;
}

}  // namespace vexnumkr::numbers
