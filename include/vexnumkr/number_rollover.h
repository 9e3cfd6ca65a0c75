// Turning the year: what the dialog's "Automatisch" does, without a window.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <vexnumkr/database.h>
#include <vexnumkr/export.h>
#include <vexnumkr/number_check.h>
#include <vexnumkr/number_company.h>
#include <vexnumkr/number_masks.h>

namespace vexnumkr::numbers {

/// A range that gets other values: `numbers.low` as start and current value, `numbers.high` as end.
struct Renumbering {
  Range range{};  ///< as it is now
  MaskNumbers numbers{};
};

/// A mask that cannot be read.
struct MaskFailure {
  Range range{};
  std::string text{};  ///< why, for people (German)
};

struct RolloverPlan {
  std::vector<Renumbering> changes;   ///< of the ranges whose values differ, in order
  std::vector<MaskFailure> failures;  ///< all of them
  std::vector<Finding> broken;        ///< the rules that would be broken afterwards

  bool isPossible() const { return failures.empty() && broken.empty(); }
};

/// What renumbering all ranges with a mask from `date` ("yyyymmdd") would do: active or not, as the
/// dialog does it; those of special ranges that are switched off, which it does not show, are left
/// out.
VEXNUMKR_API RolloverPlan planRollover(const Company& company, const std::string& date);

/// Does it in one transaction. Nothing changes where the plan is not possible; the plan that was
/// followed, or could not be, is returned. Nobody is overtaken: a range from which a number is
/// drawn meanwhile fails the whole of it.
///
/// REQUIRES: no transaction runs on `connection`. Errors: 3023 for a range that was changed
/// meanwhile; the engine's.
VEXNUMKR_API RolloverPlan applyRollover(Connection& connection, std::int32_t application,
                                        const std::string& date);

}  // namespace vexnumkr::numbers
