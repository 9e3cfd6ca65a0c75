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
/// engine's own code instead.
namespace error_number {
/// A call that makes no sense where it is made.
inline constexpr std::int32_t invalidCall = 5;
/// A number that does not fit into 32 bits.
inline constexpr std::int32_t overflow = 6;
/// A row, item or bound that does not exist.
inline constexpr std::int32_t subscriptOutOfRange = 9;
/// A text that is no number where one is needed.
inline constexpr std::int32_t typeMismatch = 13;
/// An object that is not there: before Init, or after start-up has failed.
inline constexpr std::int32_t objectNotSet = 91;
/// NULL in a column that must have a value.
inline constexpr std::int32_t invalidUseOfNull = 94;
/// A list's entry that does not exist was to be chosen.
inline constexpr std::int32_t invalidPropertyValue = 380;
/// A host component that the host does not have, or that is of another kind.
inline constexpr std::int32_t cannotCreateObject = 429;
/// An argument that cannot be used, a statement that is refused.
inline constexpr std::int32_t invalidArgument = 3001;
/// A recordset was read at its end.
inline constexpr std::int32_t noCurrentRecord = 3021;
/// The database does not hold what was sent to it; nothing of it is committed.
inline constexpr std::int32_t notStoredAsWritten = 3022;
/// Somebody else has changed a range between its reading and its writing.
inline constexpr std::int32_t changedMeanwhile = 3023;
/// A stored text is not valid in the encoding of its database.
inline constexpr std::int32_t unreadableText = 3024;
/// A database driver, or the engine behind it, that is not supported.
inline constexpr std::int32_t unknownDriver = 3706;
}  // namespace error_number

/// A failure: its number, the place it comes from and a text for the user (UTF-8).
class VEXNUMKR_API Error : public std::runtime_error {
 public:
  Error(std::int32_t number, const std::string& source, const std::string& description);

  std::int32_t number() const noexcept { return number_; }
  /// What raised the error, e.g. the adapter's name; may be empty.
  const std::string& source() const noexcept { return source_; }
  /// The same text as what(), as users see it.
  std::string description() const { return what(); }

  /// Error 6, 9, 13, 91, 94, 380, 429 and 3021 with their texts.
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
