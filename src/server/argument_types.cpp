#include "server/argument_types.h"

namespace vexnumkr::server {

TypedArguments::TypedArguments(const DISPPARAMS& given)
    : values_(given.cArgs), arguments_(given.cArgs), parameters_(given) {
  for (UINT i = 0; i < given.cArgs; ++i) {
    VARIANT& value = values_[i].get();
    if (FAILED(VariantCopyInd(&value, &given.rgvarg[i]))) value = {};
    // An unknown interface may be the object's only one that a variable held.
    if (V_VT(&value) == VT_UNKNOWN) VariantChangeType(&value, &value, 0, VT_DISPATCH);
    arguments_[i] = value;
    if (V_VT(&value) == VT_DISPATCH) {
      V_VT(&arguments_[i]) = VT_BYREF | VT_DISPATCH;
      V_DISPATCHREF(&arguments_[i]) = &V_DISPATCH(&value);
    }
  }
  parameters_.rgvarg = arguments_.data();
}

}  // namespace vexnumkr::server
