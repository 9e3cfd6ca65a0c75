#include "automation/standins/call.h"

#include "adapters/automation/com/bstr.h"
#include "automation/standins/dispatch_object.h"

namespace vexnumkr::standins {

using automation::ComPtr;
using automation::Variant;

namespace {

// VariantCopyInd and VariantChangeType only read what they do not take as const.
VARIANT* readable(const VARIANT& variant) { return const_cast<VARIANT*>(&variant); }

Variant direct(const VARIANT& argument) {
  Variant result;
  if (FAILED(VariantCopyInd(result.receive(), readable(argument))))
    throw Refusal{DISP_E_BADVARTYPE};
  return result;
}

bool isMissing(const VARIANT& argument) {
  return V_VT(&argument) == VT_ERROR && V_ERROR(&argument) == DISP_E_PARAMNOTFOUND;
}

std::string describeObject(IDispatch* object) {
  if (object == nullptr) return "Nothing";
  const auto own = standIn<DispatchObject>(object);
  return own != nullptr ? own->name() : "(object)";
}

std::string describeDirect(const VARIANT& value) {
  switch (V_VT(&value)) {
    case VT_EMPTY:
      return "Empty";
    case VT_NULL:
      return "Null";
    case VT_BOOL:
      return V_BOOL(&value) != VARIANT_FALSE ? "True" : "False";
    case VT_BSTR:
      return '"' + automation::toUtf8(V_BSTR(&value)) + '"';
    case VT_DISPATCH:
      return describeObject(V_DISPATCH(&value));
    default:
      break;
  }
  if (isMissing(value)) return "(missing)";
  Variant text;
  if (FAILED(VariantChangeTypeEx(text.receive(), readable(value), LOCALE_INVARIANT, 0, VT_BSTR)))
    return "(type " + std::to_string(V_VT(&value)) + ')';
  return automation::toUtf8(V_BSTR(&text.get()));
}

}  // namespace

std::string describe(const VARIANT& argument) {
  const std::string value = describeDirect(direct(argument).get());
  return (V_VT(&argument) & VT_BYREF) != 0 ? '&' + value : value;
}

const VARIANT& Call::argument(std::size_t index) const {
  if (index >= count()) throw Refusal{DISP_E_PARAMNOTOPTIONAL};
  return parameters_.rgvarg[count() - 1 - index];
}

bool Call::isGiven(std::size_t index) const {
  return index < count() && !isMissing(argument(index));
}

Variant Call::converted(std::size_t index, VARTYPE type) const {
  const Variant source = direct(argument(index));
  if (isMissing(source.get())) throw Refusal{DISP_E_PARAMNOTOPTIONAL};
  Variant result;
  const HRESULT code = VariantChangeType(result.receive(), readable(source.get()), 0, type);
  if (FAILED(code)) throw Refusal{code};
  return result;
}

std::int32_t Call::number(std::size_t index) const {
  return static_cast<std::int32_t>(V_I4(&converted(index, VT_I4).get()));
}

bool Call::flag(std::size_t index) const {
  return V_BOOL(&converted(index, VT_BOOL).get()) != VARIANT_FALSE;
}

std::string Call::text(std::size_t index) const {
  return automation::toUtf8(V_BSTR(&converted(index, VT_BSTR).get()));
}

ComPtr<IDispatch> Call::object(std::size_t index) const {
  return V_DISPATCH(&converted(index, VT_DISPATCH).get());
}

Value Call::value(std::size_t index) const {
  const Variant given = direct(argument(index));
  switch (V_VT(&given.get())) {
    case VT_NULL:
      return Null();
    case VT_EMPTY:
      return Empty();
    case VT_BOOL:
      return flag(index);
    case VT_BSTR:
      return text(index);
    default:
      return number(index);
  }
}

void Call::deliver(std::size_t index, Variant value) const {
  if (index >= count()) return;
  const VARIANT& target = argument(index);
  if ((V_VT(&target) & VT_BYREF) == 0) return;
  const auto type = static_cast<VARTYPE>(V_VT(&target) & ~VT_BYREF);
  if (type == VT_VARIANT) {
    std::swap(*V_VARIANTREF(&target), value.get());
    return;
  }
  Variant fitting;
  const HRESULT code = VariantChangeType(fitting.receive(), readable(value.get()), 0, type);
  if (FAILED(code)) throw Refusal{code};
  if (type == VT_I4) {
    *V_I4REF(&target) = V_I4(&fitting.get());
  } else if (type == VT_BSTR) {
    std::swap(*V_BSTRREF(&target), V_BSTR(&fitting.get()));
  } else {
    throw Refusal{DISP_E_TYPEMISMATCH};
  }
}

void Call::answer(Variant value) const {
  if (result_ != nullptr) std::swap(*result_, value.get());
}

}  // namespace vexnumkr::standins
