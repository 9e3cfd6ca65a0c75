// One late-bound call: its arguments and its result.
#pragma once

#include <cstdint>
#include <string>

#include <vexnumkr/value.h>

#include "adapters/automation/com/com_headers.h"
#include "adapters/automation/com/variant.h"

namespace vexnumkr::standins {

/// A call that is refused before anything is done: the code that Invoke returns.
struct Refusal {
  HRESULT code;
};

/// Arguments are counted from the left, from 0; one left out in the middle counts, too.
///
/// Conversions are those of automation. A Refusal: DISP_E_PARAMNOTOPTIONAL for an argument that is
/// not there, DISP_E_TYPEMISMATCH (or what the conversion says) for one of another type.
class Call {
 public:
  /// `result` may be null, where the caller wants none.
  Call(const DISPPARAMS& parameters, VARIANT* result) : parameters_(parameters), result_(result) {}

  std::size_t count() const { return parameters_.cArgs; }
  bool isGiven(std::size_t index) const;

  /// The argument as it was passed, e.g. by reference.
  const VARIANT& argument(std::size_t index) const;
  std::int32_t number(std::size_t index) const;
  bool flag(std::size_t index) const;
  /// UTF-8.
  std::string text(std::size_t index) const;
  /// The object, or null for Nothing.
  automation::ComPtr<IDispatch> object(std::size_t index) const;
  /// A value to be stored: Null, Empty, a Boolean, a number or a text.
  Value value(std::size_t index) const;

  /// Writes to an argument passed by reference; one passed by value or left out is let be.
  void deliver(std::size_t index, automation::Variant value) const;

  /// Sets the result.
  void answer(automation::Variant value) const;
  void answer(IDispatch* object) const { answer(automation::Variant(object)); }

 private:
  automation::Variant converted(std::size_t index, VARTYPE type) const;

  const DISPPARAMS& parameters_;
  VARIANT* result_;
};

/// As a script would write the argument: 1, "text", True, Null, Nothing, (missing), &5 for a
/// reference to 5, the name of a stand-in, or (object).
std::string describe(const VARIANT& argument);

}  // namespace vexnumkr::standins
