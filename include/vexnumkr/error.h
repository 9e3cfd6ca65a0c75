// The one error type of the component and of everything that a host hands to it.
//
// Implementations of the interfaces in this folder raise vexnumkr::Error for every failure. The
// component catches it where a procedure reports its failures; none ever leaves VXNummernkreise.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

#include <vexnumkr/export.h>

namespace vexnumkr {

/// Run-time error numbers that users of the host applications know. A database failure carries the
/// engine's own code instead, which may be the same number: what tells them apart is the source.
/// Numbers keep their meaning for good, since users look them up and hosts compare with them; those
/// of drawing are in numbers.h.
namespace error_number {
/// A call that makes no sense where it is made: on the wrong thread, for an application that has no
/// origin, without what it needs.
inline constexpr std::int32_t invalidCall = 5;
/// A number that does not fit into 32 bits, which is what every column for numbers has.
inline constexpr std::int32_t overflow = 6;
/// A row, item or bound that does not exist.
inline constexpr std::int32_t subscriptOutOfRange = 9;
/// A text that is no number where one is needed; value.h says what is one.
inline constexpr std::int32_t typeMismatch = 13;
/// An object that is not there: before Init, or after start-up has failed.
inline constexpr std::int32_t objectNotSet = 91;
/// NULL in a column that must have a value: a range with one cannot be shown, let alone checked.
inline constexpr std::int32_t invalidUseOfNull = 94;
/// A list's entry that does not exist was to be chosen.
inline constexpr std::int32_t invalidPropertyValue = 380;
/// A host component that the host does not have, or that is of another kind.
inline constexpr std::int32_t cannotCreateObject = 429;
/// An argument that cannot be used, a statement that is refused.
inline constexpr std::int32_t invalidArgument = 3001;
/// A recordset was read at its end.
inline constexpr std::int32_t noCurrentRecord = 3021;
/// The database does not hold what was sent to it (a trigger, a column that is too short, a
/// collation that takes two texts for one); nothing of it is committed.
inline constexpr std::int32_t notStoredAsWritten = 3022;
/// Somebody else has changed a range between its reading and its writing. Nothing is stored, since
/// a number that was issued meanwhile would be issued again; another attempt reads it anew.
inline constexpr std::int32_t changedMeanwhile = 3023;
/// A stored text is not valid in the encoding of its database. It is never shown with substitutes,
/// which would be stored in its place.
inline constexpr std::int32_t unreadableText = 3024;
/// What was asked for cannot be had there: writing through a recordset that only reads, a
/// transaction over tables that know none.
inline constexpr std::int32_t notAvailable = 3251;
/// A database driver, or the engine behind it, that is not supported.
inline constexpr std::int32_t unknownDriver = 3706;
/// There is no connection to work over: none was given, none is open any more, or no server of it
/// can be reached.
inline constexpr std::int32_t invalidConnection = 3709;
}  // namespace error_number

/// A failure: its number, the place it comes from and a text for the user (UTF-8).
///
/// A plain value: it may be copied, kept and handed to other threads. The number is what the box is
/// titled with, the text what stands in it, so that neither may hold anything secret; the supplied
/// adapters mask passwords before they raise.
class VEXNUMKR_API Error : public std::runtime_error {
 public:
  /// Any number is taken, also 0 and those of engines below 0. All three are kept as they are
  /// given.
  Error(std::int32_t number, const std::string& source, const std::string& description);

  std::int32_t number() const noexcept { return number_; }
  /// What raised the error, for programs and logs; may be empty. The supplied adapters name
  /// themselves, or the engine ("PostgreSQL 42P01", with its code where that is no number).
  const std::string& source() const noexcept { return source_; }
  /// The same text as what(), as users see it: German, or the engine's own words. Lines end with
  /// "\r\n".
  std::string description() const { return what(); }

  /// Error 6, 9, 13, 91, 94, 380, 429 and 3021 with the texts that users know them by. Adapters and
  /// hosts that raise one of these take it from here, so that it reads the same wherever it comes
  /// from.
  static Error overflow();
  static Error subscriptOutOfRange();
  static Error typeMismatch();
  static Error objectNotSet();
  static Error invalidUseOfNull();
  static Error invalidPropertyValue();
  static Error cannotCreateObject();
  static Error noCurrentRecord();

 private:
  std::int32_t number_;
  std::string source_;
};

}  // namespace vexnumkr
