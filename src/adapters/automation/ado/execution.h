// What executing a statement has in common for connections and commands.
#pragma once

#include <cstdint>
#include <memory>

#include <vexnumkr/database.h>

#include "adapters/automation/com/late_bound.h"

namespace vexnumkr::automation {

/// Calls the object's Execute, with `text` before the count where the object is given one (not
/// null). `recordsAffected` receives the provider's own count: for a select, some report -1, "not
/// known". Where the statement is no select, the result is at its end.
std::unique_ptr<Recordset> execute(LateBound& object, const Variant* text, bool isSelect,
                                   std::int32_t& recordsAffected);

}  // namespace vexnumkr::automation
