// Numbering ranges from their masks.
#pragma once

#include <string>
#include <string_view>

#include "hosting/host_context.h"

namespace vexnumkr {

/// The lowest and the highest number text of a mask's shape.
struct MaskTexts {
  std::string low;
  std::string high;
};

/// Walks the mask from right to left: digits stand for themselves, "N" for 0 to 9, "J" and "M" for
/// the next digit, from the right, of the year and month of `date` ("yyyymmdd"), "%" passes over a
/// digit of the year; anything else is ignored. After the last digit of the year or month the first
/// from the right follows again. Letters count in both cases.
MaskTexts readMask(std::string_view mask, std::string_view date);

namespace basAllgemein {

/// Asks, and then gives every range with a mask the lowest number of its mask as start and current
/// value and the highest as end value; sets the changed flag. The table is sorted for display
/// afterwards. False when the user declined or a failure, which is reported, stopped it: a mask
/// without digits (error 13) or with a number beyond 32 bits (6). The row that fails and those
/// after it keep their values.
bool StartAutoNum(HostContext& context);

}  // namespace basAllgemein
}  // namespace vexnumkr
