// An automation object that is known by the names of its members only, as ADO's are to a script.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/automation/com/com_headers.h"
#include "automation/standins/adopt.h"
#include "automation/standins/call.h"

namespace vexnumkr::standins {

/// How many objects and locks keep the library in use.
class ModuleUse {
 public:
  ModuleUse();
  ~ModuleUse();
  ModuleUse(const ModuleUse&) = delete;
  ModuleUse& operator=(const ModuleUse&) = delete;
  static long count();
};

/// Counts its references; every call that nobody intercepts is written to the log and goes to the
/// member's handler.
///
/// Members are as strict as those of compiled objects: a method is not read, a property is not
/// called, and what cannot be set is not there to set. What a handler throws becomes the call's
/// failure: vexnumkr::Error an exception with number, source and description, a Refusal its code.
class DispatchObject : public IDispatch {
 public:
  using Handler = std::function<void(Call&)>;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override;
  ULONG STDMETHODCALLTYPE Release() override;
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                                          DISPID* ids) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID memberId, REFIID reserved, LCID locale, WORD kinds,
                                   DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* raised,
                                   UINT* badArgument) override;

  /// What tells objects of this class from those of others; see standIn.
  static const IID id;

  /// The name in the log, e.g. "ADODB.Connection#1".
  const std::string& name() const { return name_; }

 protected:
  /// `progId` stands in the log, with the object's number among those of its class.
  explicit DispatchObject(std::string_view progId);
  virtual ~DispatchObject() = default;

  void method(std::wstring_view name, Handler handler);
  /// A property that is read and set; without a handler it cannot be.
  void property(std::wstring_view name, Handler get, Handler put);
  /// A property that takes references to objects, too.
  void referenceProperty(std::wstring_view name, Handler put);
  /// The property that stands for the object where a value is wanted.
  void defaultProperty(std::wstring_view name, Handler get, Handler put);

  /// Whether the object is of the derived class that has `id`.
  virtual bool isOfClass(REFIID /*classId*/) const { return false; }

 private:
  struct Member {
    std::wstring name;
    DISPID id;
    Handler call;
    Handler get;
    Handler put;
    bool takesReferences;
  };

  void add(std::wstring_view name, DISPID memberId, Handler call, Handler get, Handler put,
           bool takesReferences);
  const Member* find(DISPID wanted) const;
  const Handler* handlerFor(const Member& member, WORD kinds) const;
  HRESULT run(const Member& member, WORD kinds, Call& call, EXCEPINFO* raised) const;

  const std::string progId_;
  ModuleUse use_;
  ULONG references_ = 1;
  std::string name_;
  std::vector<Member> members_;
};

/// The object behind `pointer` where it is a stand-in of that class, else null.
template <typename Class>
automation::ComPtr<Class> standIn(IDispatch* pointer) {
  void* found = nullptr;
  if (pointer == nullptr || FAILED(pointer->QueryInterface(Class::id, &found))) return nullptr;
  return adopt(static_cast<Class*>(static_cast<IDispatch*>(found)));
}

}  // namespace vexnumkr::standins
