// Whether anybody can draw from a range: what the check warns of is what a draw refuses.
#pragma once

#include <optional>

namespace vexnumkr::numbers {

/// What is stored of a range, as far as it decides about that.
struct RangeUse {
  /// Whether its circle uses it; in the circle 0 always.
  bool isActive = false;
  /// Whether its key is a special range that is switched off. The dialog takes such a key's ranges
  /// out of its list, and with the next save out of the database.
  bool isSwitchedOff = false;

  bool isUsed() const { return isActive && !isSwitchedOff; }
};

/// Why nothing can be drawn, as far as the range's numbers do not matter.
enum class Drawable { yes, missing, inactive, switchedOff, sharedMissing, sharedInactive };

/// For a range and, where it draws another one's numbers, that one in its circle. What nobody uses
/// the dialog does not compare with the others, so its numbers may be those of somebody else; hence
/// nobody draws from such a range by way of another one either.
inline Drawable drawableOf(const std::optional<RangeUse>& range, bool isShared,
                           const std::optional<RangeUse>& shared) {
  if (!range) return Drawable::missing;
  if (range->isSwitchedOff) return Drawable::switchedOff;
  if (!range->isActive) return Drawable::inactive;
  if (!isShared) return Drawable::yes;
  if (!shared) return Drawable::sharedMissing;
  return shared->isUsed() ? Drawable::yes : Drawable::sharedInactive;
}

}  // namespace vexnumkr::numbers
