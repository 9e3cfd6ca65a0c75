// The value of a cell or a database field, and its conversions.
//
// What users type, what is stored and what is calculated with are converted here and nowhere else,
// by one set of rules that knows no locale: a number must not depend on who reads it.
// Plain values and computation: no thread rule.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include <vexnumkr/export.h>

namespace vexnumkr {

/// Nothing at all: a cell that was never filled. Where one of these is needed it is 0, False or "".
struct Empty {
  friend bool operator==(Empty, Empty) { return true; }
};
/// The database's NULL, which is told from nothing and from an empty text. It converts to nothing:
/// a start value that is not known must not be taken for 0.
struct Null {
  friend bool operator==(Null, Null) { return true; }
};

/// Holds nothing (Empty), Null, a 32-bit integer, a boolean or a text (UTF-8).
///
/// Made from any of them without a cast, since cells and fields are filled from all of them; a
/// pointer must not be null. A text is kept as it is given and not examined: it is an adapter that
/// refuses what is no UTF-8.
///
/// Equality is exact: the same kind with the same content. A number never equals a text, nor Empty
/// an empty text; whoever wants "7" to equal 7 converts first.
class VEXNUMKR_API Value {
 public:
  Value() = default;
  Value(Empty) {}                                             // NOLINT(google-explicit-constructor)
  Value(Null null) : data_(null) {}                           // NOLINT(google-explicit-constructor)
  Value(std::int32_t number) : data_(number) {}               // NOLINT(google-explicit-constructor)
  Value(bool flag) : data_(flag) {}                           // NOLINT(google-explicit-constructor)
  Value(std::string text) : data_(std::move(text)) {}         // NOLINT(google-explicit-constructor)
  Value(std::string_view text) : data_(std::string(text)) {}  // NOLINT
  Value(const char* text) : data_(std::string(text)) {}       // NOLINT(google-explicit-constructor)

  bool isEmpty() const noexcept { return std::holds_alternative<Empty>(data_); }
  bool isNull() const noexcept { return std::holds_alternative<Null>(data_); }
  bool isLong() const noexcept { return std::holds_alternative<std::int32_t>(data_); }
  bool isBoolean() const noexcept { return std::holds_alternative<bool>(data_); }
  bool isText() const noexcept { return std::holds_alternative<std::string>(data_); }

  /// The content of that kind. REQUIRES: the value is of it.
  std::int32_t asLong() const { return std::get<std::int32_t>(data_); }
  bool asBoolean() const { return std::get<bool>(data_); }
  const std::string& asText() const { return std::get<std::string>(data_); }

  /// To a 32-bit integer: Empty 0, True -1, False 0, a text read as a number (see isNumber),
  /// rounded half to even ("2,5" is 2, "3,5" is 4). Errors: 94 for Null, 13 for a text that is no
  /// number, 6 out of range, which is judged by the rounded number.
  std::int32_t toLong() const;

  /// To a boolean: Empty False, a number is True unless 0, "True"/"Wahr" and "False"/"Falsch" in
  /// any case, any other text as a number. Errors: 94 for Null, 13 for any other text.
  bool toBoolean() const;

  /// To a text: Empty "", booleans "Wahr" and "Falsch", numbers in decimal. Error: 94 for Null.
  std::string toText() const;

  friend bool operator==(const Value& a, const Value& b) { return a.data_ == b.data_; }

 private:
  std::variant<Empty, Null, std::int32_t, bool, std::string> data_;
};

/// The number conversions of texts, for callers that hold no Value.
///
/// A text is a number when it is, without the blanks around it: an optional sign, then digits,
/// plain or in groups of three separated by dots ("12.345.678"), then optionally a comma and
/// digits; ",5" is one, a lone sign or comma is not. Nothing else is: "12.5", "1e3" and "&H10" are
/// not, since a dot that might be meant as a comma would make a thousandfold of the number.
VEXNUMKR_API bool isNumber(std::string_view text);

/// `text` as a 32-bit integer, rounded half to even. Errors: 13 when it is no number, 6 out of
/// range.
VEXNUMKR_API std::int32_t textToLong(std::string_view text);

/// `text` as a boolean, by the rules of Value::toBoolean. Error: 13.
VEXNUMKR_API bool textToBoolean(std::string_view text);

/// `text` without the blanks (U+0020) before and after it; a part of it, so it lives no longer than
/// `text`. Other white space stays.
VEXNUMKR_API std::string_view trimBlanks(std::string_view text);

/// The character (one UTF-8 sequence) at that position, counted from 0; empty behind the last. A
/// part of `text`, too. Takes time in proportion to the position.
VEXNUMKR_API std::string_view characterAt(std::string_view text, std::size_t position);

}  // namespace vexnumkr
