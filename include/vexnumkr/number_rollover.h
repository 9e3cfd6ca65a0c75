// Turning the year: what the dialog's "Automatisch" does, without a window.
//
// Every range with a mask is given the numbers that its mask stands for at a date. That is all or
// nothing: a company of which a part counts in the old year and a part in the new one is worse off
// than one that nobody has renumbered.
#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <vexnumkr/database.h>
#include <vexnumkr/export.h>
#include <vexnumkr/number_check.h>
#include <vexnumkr/number_company.h>
#include <vexnumkr/number_gaps.h>
#include <vexnumkr/number_masks.h>

namespace vexnumkr::numbers {

/// A range that gets other values: `numbers.low` as start and current value, `numbers.high` as end.
struct Renumbering {
  Range range{};  ///< as it is now
  MaskNumbers numbers{};
  /// What it has issued, and would issue again; nothing where there is none of that.
  std::optional<Interval> reissued{};
};

/// Whether ranges may issue numbers again.
enum class Reissuing { refused, allowed };

/// A mask that cannot be read.
struct MaskFailure {
  Range range{};
  std::string text{};  ///< why, for people (German)
};

/// What would be done, and what speaks against it.
struct RolloverPlan {
  std::vector<Renumbering> changes;   ///< of the ranges whose values differ, in order
  std::vector<MaskFailure> failures;  ///< all of them
  std::vector<Finding> broken;        ///< the rules that would be broken afterwards

  Reissuing reissuing = Reissuing::refused;

  bool reissues() const {
    return std::any_of(changes.begin(), changes.end(),
                       [](const Renumbering& change) { return change.reissued.has_value(); });
  }
  /// True also where there is nothing to change, as when it has been done before.
  bool isPossible() const {
    return failures.empty() && broken.empty() && (reissuing == Reissuing::allowed || !reissues());
  }
};

/// What renumbering all ranges with a mask from `date` ("yyyymmdd") would do: active or not, as the
/// dialog does it; those of special ranges that are switched off, which it does not show, are left
/// out. Ranges whose values are those of the mask already, with none issued, are no changes. The
/// plan refuses to issue numbers again.
VEXNUMKR_API RolloverPlan planRollover(const Company& company, const std::string& date);

/// Does it in one transaction. Nothing changes where the plan is not possible; the plan that was
/// followed, or could not be, is returned. Nobody is overtaken: a range from which a number is
/// drawn meanwhile fails the whole of it. With Reissuing::allowed numbers may be issued again, as
/// the dialog does it.
///
/// REQUIRES: no transaction runs on `connection`. Errors: 3023 for a range that was changed
/// meanwhile; the engine's.
VEXNUMKR_API RolloverPlan applyRollover(Connection& connection, std::int32_t application,
                                        const std::string& date,
                                        Reissuing reissuing = Reissuing::refused);

}  // namespace vexnumkr::numbers
