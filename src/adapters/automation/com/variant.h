// The values that automation passes, and what the component makes of them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include <vexnumkr/value.h>

#include "adapters/automation/com/com_headers.h"

namespace vexnumkr::automation {

/// A VARIANT that is cleared with its owner.
class Variant {
 public:
  Variant() { VariantInit(&data_); }
  explicit Variant(std::int32_t number);
  explicit Variant(bool flag);
  explicit Variant(std::string_view text);
  explicit Variant(const std::string& text) : Variant(std::string_view(text)) {}
  explicit Variant(const char* text) : Variant(std::string_view(text)) {}
  /// A reference to the object; null is Nothing.
  explicit Variant(IDispatch* object);
  /// Empty, Null, a Long, a Boolean or a String.
  explicit Variant(const Value& value);
  /// A reference to `target`, which outlives the result: an argument that the callee may change.
  static Variant reference(VARIANT& target);
  static Variant reference(BSTR& target);

  Variant(Variant&& other) noexcept;
  Variant& operator=(Variant&& other) noexcept;
  Variant(const Variant&) = delete;
  Variant& operator=(const Variant&) = delete;
  ~Variant() { VariantClear(&data_); }

  const VARIANT& get() const { return data_; }
  VARIANT& get() { return data_; }
  /// For functions that deliver a VARIANT; what it held is cleared.
  VARIANT* receive();

 private:
  VARIANT data_;
};

/// What a VARIANT holds, references followed. Booleans and integers become numbers, -1 for True;
/// other numbers too where they are whole and fit into 32 bits, else their text in German, without
/// an exponent; dates become the text that the user's regional settings give them. Error 13 for
/// objects and arrays.
Value toValue(const VARIANT& variant);

/// The same for what a database holds. Error 3024 for a text that is not well-formed.
Value toStoredValue(const VARIANT& variant);

/// As toValue, converted. Errors as Value's conversions.
std::int32_t toLong(const VARIANT& variant);
bool toBoolean(const VARIANT& variant);
std::string toText(const VARIANT& variant);

/// The object in a VARIANT, references followed; null for Nothing, Null and Empty. Error 424 for
/// anything else.
ComPtr<IDispatch> toObject(const VARIANT& variant);

}  // namespace vexnumkr::automation
