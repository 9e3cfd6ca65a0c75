// What every COM object here has in common.
#pragma once

#include <atomic>
#include <utility>

#include "windows/module.h"

namespace vexnumkr::server {

/// Counts the references to an object of class `Derived`, which implements `Interface` and answers
/// with itself for the interfaces that Derived::implements names. The last release deletes it.
template <class Derived, class Interface>
class Unknown : public Interface {
 public:
  Unknown(const Unknown&) = delete;
  Unknown& operator=(const Unknown&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** object) final {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (wanted != IID_IUnknown && !Derived::implements(wanted)) return E_NOINTERFACE;
    AddRef();
    *object = static_cast<Interface*>(this);
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() final { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() final {
    const ULONG left = --references_;
    if (left == 0) delete static_cast<Derived*>(this);
    return left;
  }

 protected:
  Unknown() = default;
  ~Unknown() = default;

 private:
  const ModuleLock loaded_;
  std::atomic<ULONG> references_ = 1;  // the maker's
};

}  // namespace vexnumkr::server
