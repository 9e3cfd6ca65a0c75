// Arguments of late-bound calls, brought into the form that the typed interface takes.
#pragma once

#include <vector>

#include "adapters/automation/com/variant.h"

namespace vexnumkr::server {

/// The arguments of one call, as the type library's own invocation takes them. Script languages
/// hand over a variable as a reference to a VARIANT; here every argument is the value itself, but
/// for the one that is to be a reference to an object.
class TypedArguments {
 public:
  /// `given` outlives this and is not changed. `referenced` is the parameter, counted from 0, that
  /// takes a reference to an object.
  TypedArguments(const DISPPARAMS& given, DISPID referenced);

  DISPPARAMS* parameters() { return &parameters_; }

 private:
  std::vector<automation::Variant> values_;
  std::vector<VARIANT> arguments_;
  DISPPARAMS parameters_;
};

}  // namespace vexnumkr::server
