// Somebody else was faster.
#pragma once

#include <string>

#include <vexnumkr/error.h>
#include <vexnumkr/number_company.h>

#include "numbers/check/checked_ranges.h"

namespace vexnumkr::numbers {

/// The failure of a change to a range from which a number was drawn, or that somebody has changed,
/// since it was read. The transaction with the change has to be rolled back.
inline Error changedMeanwhile(const Range& range) {
  return Error(error_number::changedMeanwhile, "vexnumkr",
               "Der Nummernkreis " + describeKey(range) + ", Buchungskreis " +
                   std::to_string(range.circle) +
                   ", wurde soeben an anderer Stelle geändert. Es wurde nichts geändert; bitte "
                   "versuchen Sie es noch einmal.");
}

}  // namespace vexnumkr::numbers
