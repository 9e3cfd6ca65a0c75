// What the database holds about the number ranges of one application, read at once.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <vexnumkr/database.h>
#include <vexnumkr/export.h>

namespace vexnumkr::numbers {

/// One range, as it is stored. Texts are without trailing blanks, and empty for NULL.
struct Range {
  std::int32_t circle = 0;
  std::string key{};
  std::string description{};
  std::optional<std::int32_t> start{};    ///< nothing for NULL, with which the dialog does not open
  std::optional<std::int32_t> current{};  ///< the number last issued
  std::optional<std::int32_t> end{};
  bool active = false;  ///< in the circle 0 always
  std::int32_t sortIndex = 0;
  std::string sharedKey{};  ///< `IstNSchlVon`: whose numbers it draws
  std::string mask{};

  /// Ranges of one sequence share their numbers, so they must not overlap.
  const std::string& sequence() const { return sharedKey.empty() ? key : sharedKey; }
};

struct Circle {
  std::int32_t number = 0;
  std::string description{};
};

/// Says that a user, or everybody, draws from a range.
struct Assignment {
  std::int32_t circle = 0;
  std::string key{};
  std::string user{};
};

/// A number key that can be switched on.
struct SpecialRange {
  std::string ownKey{};
  std::string key{};
  std::string description{};
  bool active = false;
};

/// One application's view of the database.
struct VEXNUMKR_API Company {
  std::int32_t application = 0;
  /// The ranges in the standard circle 0 and in the application's circles, by `sortIndex`, key and
  /// circle; without the host's own keys "LM" and "AF".
  std::vector<Range> ranges;
  std::vector<Circle> circles;              ///< by number
  std::vector<Assignment> assignments;      ///< by circle, key and user
  std::vector<SpecialRange> specialRanges;  ///< by their own key
  std::vector<std::string> users;           ///< by name

  /// "Standard" for the circle 0, otherwise the circle's description, or its number where it has
  /// none.
  std::string circleName(std::int32_t circle) const;
  /// The range of a key in a circle, or null.
  const Range* find(std::int32_t circle, const std::string& key) const;
};

/// Reads the five tables; texts are ordered by code points. Errors: 5 for an application other than
/// 1 and 2; the engine's; 13 and 6 for a number that is none.
VEXNUMKR_API Company readCompany(Connection& connection, std::int32_t application);

}  // namespace vexnumkr::numbers
