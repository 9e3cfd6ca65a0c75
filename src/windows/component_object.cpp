#include "windows/component_object.h"

#include <memory>
#include <new>

#include <vexnumkr/error.h>

#include "adapters/automation/ado/connection.h"
#include "adapters/automation/com/bstr.h"
#include "adapters/automation/com/failure.h"
#include "adapters/automation/components/automation_host.h"
#include "component/composition.h"
#include "platform/reporter.h"
#include "windows/dialog_application.h"
#include "windows/floating_point.h"
#include "windows/host_windows.h"
#include "windows/interface.h"
#include "windows/typed_arguments.h"
#include "windows/unknown.h"

namespace vexnumkr::server {
namespace {

using automation::ComPtr;
using automation::toUtf8;

// Conn is the first argument of Init; ShowDialog has none.
constexpr DISPID connectionArgument = 0;

std::shared_ptr<Connection> connectionOf(IDispatch* object) {
  if (object == nullptr) return nullptr;
  return std::make_shared<automation::AdoConnection>(
      automation::LateBound(ComPtr<IDispatch>(object)));
}

ComPtr<ITypeInfo> ownTypeInfo() {
  ComPtr<ITypeLib> library;
  ComPtr<ITypeInfo> description;
  automation::raiseOnFailure(LoadTypeLibEx(Module::path().c_str(), REGKIND_NONE, &library));
  automation::raiseOnFailure(library->GetTypeInfoOfGuid(interfaceId, &description));
  return description;
}

class ComponentObject final : public Unknown<ComponentObject, _VXNummernkreise> {
 public:
  ComponentObject() : description_(ownTypeInfo()) {}

  static bool implements(REFIID id) { return id == IID_IDispatch || id == interfaceId; }

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    if (count == nullptr) return E_POINTER;
    *count = 1;
    return S_OK;
  }

  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID /*locale*/,
                                        ITypeInfo** description) override {
    if (description == nullptr) return E_POINTER;
    *description = nullptr;
    if (index != 0) return DISP_E_BADINDEX;
    return description_.CopyTo(description);
  }

  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count,
                                          LCID /*locale*/, DISPID* ids) override {
    if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    return description_->GetIDsOfNames(names, count, ids);
  }

  HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID reserved, LCID /*locale*/, WORD kind,
                                   DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* raised,
                                   UINT* argument) override {
    if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    if (parameters == nullptr) return E_POINTER;
    try {
      TypedArguments typed(*parameters, connectionArgument);
      return description_->Invoke(static_cast<_VXNummernkreise*>(this), member, kind,
                                  typed.parameters(), result, raised, argument);
    } catch (...) {
      return E_OUTOFMEMORY;
    }
  }

  HRESULT STDMETHODCALLTYPE Init(IDispatch** Conn, LONG LngApplication, BSTR strUser,
                                 BSTR jmtVerarbeitungsdatum, VARIANT_BOOL* result) override {
    if (result == nullptr) return E_POINTER;
    *result = VARIANT_FALSE;
    withDialogs("Init", [&] {
      const bool done =
          component().Init(connectionOf(Conn != nullptr ? *Conn : nullptr), LngApplication,
                           toUtf8(strUser), toUtf8(jmtVerarbeitungsdatum));
      *result = done ? VARIANT_TRUE : VARIANT_FALSE;
    });
    return S_OK;
  }

  HRESULT STDMETHODCALLTYPE ShowDialog() override {
    withDialogs("ShowDialog", [&] { component().ShowDialog(); });
    return S_OK;
  }

 private:
  friend Unknown;
  ~ComponentObject() = default;

  // Made late: an object that a host creates and never uses does not bring up Qt. Its database may
  // be behind any provider, of which nobody knows what it takes besides plain statements.
  QtComponent& component() {
    if (component_ == nullptr)
      component_ = std::make_unique<QtComponent>(host_, DatabaseAccess::rowByRow);
    return *component_;
  }

  // No failure crosses the border. The host may release its last reference meanwhile.
  template <class Action>
  void withDialogs(const char* procedure, Action&& action) noexcept {
    const ComPtr<IUnknown> alive(this);
    try {
      const MaskedFloatingPoint masked;
      requireDialogApplication();
      const HostWindows disabled;
      action();
    } catch (...) {
      ignoringFailures([&] { showPlainFailure(currentFailure(), procedure); });
    }
  }

  const ComPtr<ITypeInfo> description_;
  automation::AutomationHost host_;
  std::unique_ptr<QtComponent> component_;
};

}  // namespace

HRESULT createComponentObject(REFIID wanted, void** object) {
  try {
    auto* const component = new ComponentObject;
    const HRESULT found = component->QueryInterface(wanted, object);
    component->Release();
    return found;
  } catch (const Error& error) {
    return error.number() < 0 ? error.number() : E_FAIL;
  } catch (...) {
    return E_OUTOFMEMORY;
  }
}

}  // namespace vexnumkr::server
