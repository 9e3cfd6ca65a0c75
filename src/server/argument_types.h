// Arguments of late-bound calls, brought into the form that the typed interface takes.
#pragma once

#include <vector>

#include "adapters/automation/com/variant.h"

namespace vexnumkr::server {

/// The arguments of one call. Script languages hand over variables as references to VARIANTs, which
/// the type library's own invocation does not turn into references to objects: here every argument
/// stands for itself, and an object also for a reference to it.
class TypedArguments {
 public:
  /// `given` outlives this and is not changed.
  explicit TypedArguments(const DISPPARAMS& given);

  DISPPARAMS* parameters() { return &parameters_; }

 private:
  std::vector<automation::Variant> values_;
  std::vector<VARIANT> arguments_;
  DISPPARAMS parameters_;
};

}  // namespace vexnumkr::server
