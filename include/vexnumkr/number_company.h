// What the database holds about the number ranges of one application, read at once.
//
// Plain values that know of no connection: they are checked, compared and stored by the functions
// in the other headers, and may be made or changed by hand, as an import from another source does.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <vexnumkr/database.h>
#include <vexnumkr/export.h>

namespace vexnumkr::numbers {

/// One range, as it is stored. Texts are without trailing blanks, and empty for NULL. Circle and
/// key together name it: no other has both.
struct Range {
  /// The booking circle, or 0 for the standard range that every circle is measured by.
  std::int32_t circle = 0;
  /// The kind of document, "RE" for invoices. Keys differ when their letters do, also in case.
  std::string key{};
  std::string description{};
  /// The value before the first number that is issued; nothing for NULL, with which the dialog does
  /// not open. The same holds for the next two.
  std::optional<std::int32_t> start{};
  /// The number last issued, or `start` where none is yet.
  std::optional<std::int32_t> current{};
  /// The last number that is issued.
  std::optional<std::int32_t> end{};
  /// Whether the circle uses the range; in the circle 0 always.
  bool active = false;
  /// By which the dialog orders the keys.
  std::int32_t sortIndex = 0;
  /// `IstNSchlVon`: whose numbers it draws, in its own circle; empty for its own.
  std::string sharedKey{};
  /// As number_masks.h reads it; empty where nobody has given one.
  std::string mask{};

  /// Ranges of one sequence share their numbers, so they must not overlap.
  const std::string& sequence() const { return sharedKey.empty() ? key : sharedKey; }
};

/// A booking circle of the application: a company, branch or shop with numbers of its own.
struct Circle {
  /// The standard circle 0 belongs to every application and is not listed.
  std::int32_t number = 0;
  std::string description{};
};

/// Says that a user, or everybody, draws from a range. Several may name the same, and the range may
/// be missing: the table has no key, and its rows outlive what they point to.
struct Assignment {
  std::int32_t circle = 0;
  std::string key{};
  /// As the user table spells it, or `everybody` of numbers.h.
  std::string user{};
};

/// A number key that can be switched on, and draws from the range of another one.
struct SpecialRange {
  /// The key that its ranges have: `Range::key`.
  std::string ownKey{};
  /// The key whose numbers it draws: their `Range::sharedKey`.
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
  /// The range of a key in a circle, or null; a pointer into `ranges`. Looks through all of them.
  const Range* find(std::int32_t circle, const std::string& key) const;
};

/// Reads the five tables; texts are ordered by code points, whatever the engine's collation is. A
/// transaction is not needed and none is begun; who needs a picture of one moment, which a save
/// meanwhile would spoil, reads in readAtOneMoment.
///
/// Errors: 5 for an application other than 1 and 2; the engine's; 13 and 6 for a number that is
/// none.
VEXNUMKR_API Company readCompany(Connection& connection, std::int32_t application);

/// Runs `work` so that all that it reads on `connection` is as it was stored at one moment,
/// whatever others store meanwhile. It must not change anything. Nobody waits for it; but where
/// one who reads keeps a file from being written, as on SQLite, others store when it has ended. A
/// connection that refuses transactions of ado::repeatableRead (with 3251) reads without one.
///
/// REQUIRES: no transaction runs on `connection`. Errors: the engine's, and what `work` raises.
VEXNUMKR_API void readAtOneMoment(Connection& connection, const std::function<void()>& work);

}  // namespace vexnumkr::numbers
