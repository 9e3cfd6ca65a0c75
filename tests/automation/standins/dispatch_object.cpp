#include "automation/standins/dispatch_object.h"

#include <atomic>
#include <exception>
#include <map>

#include <vexnumkr/error.h>

#include "adapters/automation/com/bstr.h"
#include "automation/standins/ado_errors.h"
#include "automation/standins/call_log.h"
#include "automation/standins/interception.h"

namespace vexnumkr::standins {
namespace {

// DllCanUnloadNow has nobody else to ask.
std::atomic<long> uses = 0;

// Every class counts its own objects, so that a log says the same in every run.
int nextNumber(const std::string& progId) {
  static std::map<std::string, int> numbers;
  return ++numbers[progId];
}

constexpr WORD putKinds = DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF;

bool isSameName(std::wstring_view a, std::wstring_view b) {
  return CompareStringOrdinal(a.data(), static_cast<int>(a.size()), b.data(),
                              static_cast<int>(b.size()), TRUE) == CSTR_EQUAL;
}

const char* kindText(WORD kinds) {
  if ((kinds & DISPATCH_PROPERTYPUTREF) != 0) return " set";
  if ((kinds & DISPATCH_PROPERTYPUT) != 0) return " let";
  return "";
}

std::string argumentTexts(const Call& call) {
  std::string texts;
  for (std::size_t i = 0; i < call.count(); ++i)
    texts.append(i == 0 ? " " : ", ").append(describe(call.argument(i)));
  return texts;
}

// A property is set by exactly one argument, which says that it is the value; other named arguments
// are not understood.
HRESULT checkForm(WORD kinds, const DISPPARAMS& parameters) {
  if ((kinds & putKinds) == 0) return parameters.cNamedArgs == 0 ? S_OK : DISP_E_NONAMEDARGS;
  if (parameters.cNamedArgs != 1 || parameters.rgdispidNamedArgs[0] != DISPID_PROPERTYPUT)
    return DISP_E_PARAMNOTOPTIONAL;
  return parameters.cArgs == 1 ? S_OK : DISP_E_BADPARAMCOUNT;
}

void fill(EXCEPINFO* raised, const RaisedCode& code, const Error& error) {
  if (raised == nullptr) return;
  *raised = {};
  raised->scode = code.scode;
  raised->bstrSource = automation::Bstr(code.source).release();
  raised->bstrDescription = automation::Bstr(error.description()).release();
}

}  // namespace

ModuleUse::ModuleUse() { ++uses; }
ModuleUse::~ModuleUse() { --uses; }
long ModuleUse::count() { return uses; }

DispatchObject::DispatchObject(std::string_view progId)
    : progId_(progId), name_(progId_ + '#' + std::to_string(nextNumber(progId_))) {}

const IID DispatchObject::id = {
    0x2d2f0d0a, 0x7a3e, 0x4b0e, {0x9c, 0x51, 0x0e, 0x8a, 0x6d, 0x3b, 0x11, 0x01}};

HRESULT DispatchObject::QueryInterface(REFIID wanted, void** object) {
  if (object == nullptr) return E_POINTER;
  const bool isKnown =
      wanted == IID_IUnknown || wanted == IID_IDispatch || wanted == id || isOfClass(wanted);
  *object = isKnown ? static_cast<IDispatch*>(this) : nullptr;
  if (!isKnown) return E_NOINTERFACE;
  AddRef();
  return S_OK;
}

ULONG DispatchObject::AddRef() { return ++references_; }

ULONG DispatchObject::Release() {
  if (references_ > 1) return --references_;
  // It is still there while that is asked.
  HRESULT ignored = S_OK;
  isIntercepted(("end of " + progId_).c_str(), ignored);
  delete this;
  return 0;
}

HRESULT DispatchObject::GetTypeInfoCount(UINT* count) {
  *count = 0;
  return S_OK;
}

HRESULT DispatchObject::GetTypeInfo(UINT /*index*/, LCID /*locale*/, ITypeInfo** info) {
  *info = nullptr;
  return DISP_E_BADINDEX;
}

HRESULT DispatchObject::GetIDsOfNames(REFIID /*reserved*/, LPOLESTR* names, UINT count,
                                      LCID /*locale*/, DISPID* ids) {
  for (UINT i = 0; i < count; ++i) ids[i] = DISPID_UNKNOWN;
  for (const Member& member : members_)
    if (isSameName(member.name, names[0])) ids[0] = member.id;
  return count == 1 && ids[0] != DISPID_UNKNOWN ? S_OK : DISP_E_UNKNOWNNAME;
}

HRESULT DispatchObject::Invoke(DISPID memberId, REFIID /*reserved*/, LCID /*locale*/, WORD kinds,
                               DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* raised,
                               UINT* /*badArgument*/) {
  const Member* const member = find(memberId);
  if (member == nullptr) return DISP_E_MEMBERNOTFOUND;
  if (const HRESULT form = checkForm(kinds, *parameters); FAILED(form)) return form;
  if (result != nullptr) VariantInit(result);
  Call call(*parameters, result);
  // The object may be released by what it is asked to do.
  const automation::ComPtr<IDispatch> alive = this;
  return run(*member, kinds, call, raised);
}

HRESULT DispatchObject::run(const Member& member, WORD kinds, Call& call, EXCEPINFO* raised) const {
  const Handler* const handler = handlerFor(member, kinds);
  if (handler == nullptr) return DISP_E_MEMBERNOTFOUND;
  const std::string called =
      '.' + automation::toUtf8(std::wstring_view(member.name)) + kindText(kinds);
  HRESULT code = S_OK;
  if (isIntercepted((progId_ + called).c_str(), code)) return code;
  std::string line = name_ + called + argumentTexts(call);
  try {
    (*handler)(call);
  } catch (const Refusal& refusal) {
    code = refusal.code;
    line += " -> refused";
  } catch (const Error& error) {
    code = DISP_E_EXCEPTION;
    fill(raised, raisedCode(error), error);
    line += " -> " + error.description();
  } catch (const std::exception& failure) {
    code = E_UNEXPECTED;
    line.append(" -> ").append(failure.what());
  }
  logCall(line);
  return code;
}

void DispatchObject::add(std::wstring_view name, DISPID memberId, Handler call, Handler get,
                         Handler put, bool takesReferences) {
  members_.push_back({std::wstring(name), memberId, std::move(call), std::move(get), std::move(put),
                      takesReferences});
}

void DispatchObject::method(std::wstring_view name, Handler handler) {
  add(name, static_cast<DISPID>(members_.size() + 1), std::move(handler), {}, {}, false);
}

void DispatchObject::property(std::wstring_view name, Handler get, Handler put) {
  add(name, static_cast<DISPID>(members_.size() + 1), {}, std::move(get), std::move(put), false);
}

void DispatchObject::referenceProperty(std::wstring_view name, Handler put) {
  add(name, static_cast<DISPID>(members_.size() + 1), {}, {}, std::move(put), true);
}

void DispatchObject::defaultProperty(std::wstring_view name, Handler get, Handler put) {
  add(name, DISPID_VALUE, {}, std::move(get), std::move(put), false);
}

const DispatchObject::Member* DispatchObject::find(DISPID wanted) const {
  for (const Member& member : members_)
    if (member.id == wanted) return &member;
  return nullptr;
}

// Scripts ask for "call or read" where they cannot tell which it is.
const DispatchObject::Handler* DispatchObject::handlerFor(const Member& member, WORD kinds) const {
  const Handler* handler = nullptr;
  if ((kinds & DISPATCH_METHOD) != 0 && member.call) handler = &member.call;
  if ((kinds & DISPATCH_PROPERTYGET) != 0 && member.get) handler = &member.get;
  const bool isReference = (kinds & DISPATCH_PROPERTYPUTREF) != 0;
  if ((kinds & putKinds) != 0 && member.put && (!isReference || member.takesReferences))
    handler = &member.put;
  return handler;
}

}  // namespace vexnumkr::standins
