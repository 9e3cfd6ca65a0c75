#include "windows/typed_arguments.h"

namespace vexnumkr::server {
namespace {

// Named arguments come first; the others stand from the last to the first.
DISPID parameterOf(const DISPPARAMS& given, UINT argument) {
  if (argument < given.cNamedArgs) return given.rgdispidNamedArgs[argument];
  return static_cast<DISPID>(given.cArgs - 1 - argument);
}

}  // namespace

TypedArguments::TypedArguments(const DISPPARAMS& given, DISPID referenced)
    : values_(given.cArgs), arguments_(given.cArgs), parameters_(given) {
  for (UINT i = 0; i < given.cArgs; ++i) {
    VARIANT& value = values_[i].get();
    if (FAILED(VariantCopyInd(&value, &given.rgvarg[i]))) VariantInit(&value);
    // Some hosts hold objects without saying that they can be automated.
    if (V_VT(&value) == VT_UNKNOWN) VariantChangeType(&value, &value, 0, VT_DISPATCH);
    arguments_[i] = value;
    if (V_VT(&value) == VT_DISPATCH && parameterOf(given, i) == referenced) {
      V_VT(&arguments_[i]) = VT_BYREF | VT_DISPATCH;
      V_DISPATCHREF(&arguments_[i]) = &V_DISPATCH(&value);
    }
  }
  parameters_.rgvarg = arguments_.data();
}

}  // namespace vexnumkr::server
