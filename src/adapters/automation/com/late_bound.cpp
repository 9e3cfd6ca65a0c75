#include "adapters/automation/com/late_bound.h"

#include <dispex.h>

#include <vector>

#include "adapters/automation/com/bstr.h"
#include "adapters/automation/com/failure.h"

namespace vexnumkr::automation {
namespace {

// Automation takes arguments from the last to the first. Copies of the borrowed values, so nothing
// is to be freed.
std::vector<VARIANT> inReverse(std::initializer_list<const Variant*> arguments) {
  std::vector<VARIANT> result;
  result.reserve(arguments.size());
  for (auto argument = arguments.end(); argument != arguments.begin();)
    result.push_back((*--argument)->get());
  return result;
}

HRESULT invoke(IDispatch& object, DISPID id, WORD kind, DISPPARAMS& parameters, VARIANT* result,
               EXCEPINFO& raised) {
  return object.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters, result, &raised,
                       nullptr);
}

void raiseOnFailure(HRESULT code, EXCEPINFO& raised) {
  if (code == DISP_E_EXCEPTION) throw failureOf(raised);
  automation::raiseOnFailure(code);
}

HRESULT putValue(IDispatch& object, DISPID id, WORD kind, const Variant& value, EXCEPINFO& raised) {
  VARIANT argument = value.get();
  DISPID put = DISPID_PROPERTYPUT;
  DISPPARAMS parameters = {&argument, &put, 1, 1};
  return invoke(object, id, kind, parameters, nullptr, raised);
}

}  // namespace

LateBound LateBound::create(std::string_view name) {
  CLSID id = {};
  ComPtr<IDispatch> object;
  if (FAILED(CLSIDFromProgID(toWide(name).c_str(), &id)) ||
      FAILED(CoCreateInstance(id, nullptr, CLSCTX_SERVER, IID_PPV_ARGS(&object))))
    throw Error::cannotCreateObject();
  return LateBound(std::move(object));
}

DISPID LateBound::findId(std::string_view member) const {
  std::wstring name = toWide(member);
  LPOLESTR names = name.data();
  DISPID id = DISPID_UNKNOWN;
  const HRESULT found = object_->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id);
  if (SUCCEEDED(found)) return id;
  // Objects of script languages answer by another interface only.
  ComPtr<IDispatchEx> extended;
  if (FAILED(object_.As(&extended))) throw failureOf(found);
  automation::raiseOnFailure(
      extended->GetDispID(Bstr(std::wstring_view(name)).get(), fdexNameCaseInsensitive, &id));
  return id;
}

DISPID LateBound::idOf(std::string_view member) {
  if (object_ == nullptr) throw Error::objectNotSet();
  if (const auto known = ids_.find(member); known != ids_.end()) return known->second;
  const DISPID id = findId(member);
  ids_.emplace(member, id);
  return id;
}

// A member may let go of whoever calls it, and this along with it; the object itself stays for as
// long as the call takes.
Variant LateBound::call(std::string_view member, std::initializer_list<const Variant*> arguments) {
  const DISPID id = idOf(member);
  std::vector<VARIANT> values = inReverse(arguments);
  DISPPARAMS parameters = {values.data(), nullptr, static_cast<UINT>(values.size()), 0};
  Variant result;
  EXCEPINFO raised = {};
  const ComPtr<IDispatch> object = object_;
  raiseOnFailure(invoke(*object.Get(), id, DISPATCH_METHOD | DISPATCH_PROPERTYGET, parameters,
                        result.receive(), raised),
                 raised);
  return result;
}

void LateBound::put(std::string_view member, const Variant& value) {
  const DISPID id = idOf(member);
  EXCEPINFO raised = {};
  const ComPtr<IDispatch> object = object_;
  raiseOnFailure(putValue(*object.Get(), id, DISPATCH_PROPERTYPUT, value, raised), raised);
}

void LateBound::putReference(std::string_view member, const Variant& value) {
  const DISPID id = idOf(member);
  EXCEPINFO raised = {};
  const ComPtr<IDispatch> object = object_;
  HRESULT code = putValue(*object.Get(), id, DISPATCH_PROPERTYPUTREF, value, raised);
  // Some objects take references like values.
  if (code == DISP_E_MEMBERNOTFOUND)
    code = putValue(*object.Get(), id, DISPATCH_PROPERTYPUT, value, raised);
  raiseOnFailure(code, raised);
}

}  // namespace vexnumkr::automation
