// Drawing document numbers from the ranges that the dialog administers, without a window.
//
// All of it needs a database adapter and nothing else: no toolkit, no application object beyond
// what the adapter itself asks for. What else can be done without a window stands in the headers
// number_*.h beside this one.
//
// Threads: a connection is used by one thread at a time; different connections do not meet.
// Failures: everything raises vexnumkr::Error; those that are not the database's are named here.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <vexnumkr/database.h>
#include <vexnumkr/error.h>
#include <vexnumkr/export.h>

namespace vexnumkr::numbers {

/// The user who stands for everybody: its assignments serve those who have none of their own.
inline constexpr const char* everybody = "ALL";

/// Which numbers are asked for.
struct DrawRequest {
  /// 1 or 2, as for VXNummernkreise::Init.
  std::int32_t application = 0;
  /// For whom, as the host's user table spells it.
  std::string user{};
  /// The number key, "RE" for example.
  std::string key{};
  /// The booking circle meant where several are assigned.
  std::optional<std::int32_t> circle{};
  /// How many; all of them are drawn or none.
  std::int32_t count = 1;
};

/// Numbers that have been issued, one after the other.
struct Draw {
  std::int32_t first = 0;
  std::int32_t last = 0;
  std::int32_t circle = 0;      ///< the booking circle whose range they are from
  std::string key{};            ///< the key whose range that is: for a special range `IstNSchlVon`
  std::int32_t startValue = 0;  ///< the range's
  std::int32_t endValue = 0;    ///< the range's

  /// How many numbers of the range are left behind `number`, one of those issued.
  std::int64_t left(std::int32_t number) const { return std::int64_t{endValue} - number; }
  /// Whether `number` belongs to the last tenth of the numbers that the range can issue.
  bool isInLastTenth(std::int32_t number) const {
    return left(number) * 10 < std::int64_t{endValue} - startValue;
  }
  /// Whether the range has no number left behind `number`.
  bool isLast(std::int32_t number) const { return number == endValue; }
};

/// Why no number was drawn.
enum class DrawFailure : std::int32_t {
  notAssigned = 3031,    ///< no assignment of this key to the user or to everybody
  ambiguous = 3032,      ///< several circles have an active range assigned, and none was named
  rangeMissing = 3033,   ///< the assignment names a range that is not stored
  rangeInactive = 3034,  ///< it, or the range that it draws from, or its special range
  rangeBroken = 3035,    ///< its values contradict each other, or one is missing
  exhausted = 3036,      ///< fewer numbers are left than asked for
};

/// The error of a draw that the ranges do not allow; its number is that of the DrawFailure.
class VEXNUMKR_API DrawError : public Error {
 public:
  DrawError(DrawFailure failure, const std::string& description,
            std::vector<std::int32_t> circles = {});

  DrawFailure failure() const { return static_cast<DrawFailure>(number()); }
  /// For `ambiguous`, the booking circles to choose from, ascending.
  const std::vector<std::int32_t>& circles() const { return circles_; }

 private:
  std::vector<std::int32_t> circles_;
};

/// Draws numbers in a transaction of its own, which is committed on return: whatever becomes of
/// the document, its number is used up. Hosts that draw like this do not wait for each other's
/// documents, and an abandoned document leaves a gap.
///
/// The range is the active one assigned to the user, or where the user has no assignment the one
/// assigned to everybody, in the booking circle of the assignment; a special range (its
/// `IstNSchlVon` is not empty) draws from the range of that key in the same circle. Neither may be
/// inactive or one of a special range that is switched off. `AktuellerWert`
/// is the number last issued; the range's `StartWert` counts as issued.
///
/// A lock that somebody else holds is waited for as long as the adapter waits, up to ten times.
///
/// REQUIRES: no transaction runs on `connection`. Best on one that is not opened as `isolated`.
/// Errors: DrawError; 5 for an application other than 1 and 2, an empty user or key, or a count
/// below 1; the engine's. After an error no number is used up, except where the connection is lost
/// while the engine commits.
VEXNUMKR_API Draw draw(Connection& connection, const DrawRequest& request);

/// Draws numbers in the transaction that runs on `connection`: rolling that back gives them back.
/// Documents numbered like this have no gaps; whoever draws from the same range meanwhile waits for
/// the end of this transaction, so it should be short.
///
/// On SQLite the draw should be the first thing that the transaction does: whoever has read before
/// is refused the write lock, where somebody else holds it, without waiting.
///
/// Errors as for draw. A DrawError leaves the transaction running and its work in place.
VEXNUMKR_API Draw drawInTransaction(Connection& connection, const DrawRequest& request);

/// Tells what draw would issue now, and issues nothing. Errors as for draw.
VEXNUMKR_API Draw tryDraw(Connection& connection, const DrawRequest& request);

}  // namespace vexnumkr::numbers
