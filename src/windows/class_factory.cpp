#include "windows/class_factory.h"

#include <new>

#include "windows/component_object.h"
#include "windows/unknown.h"

namespace vexnumkr::server {
namespace {

class ClassFactory final : public Unknown<ClassFactory, IClassFactory> {
 public:
  static bool implements(REFIID id) { return id == IID_IClassFactory; }

  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID wanted, void** object) override {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    return createComponentObject(wanted, object);
  }

  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override {
    if (lock)
      Module::instance().lock();
    else
      Module::instance().unlock();
    return S_OK;
  }
};

}  // namespace

HRESULT createClassFactory(REFIID wantedInterface, void** object) {
  auto* const factory = new (std::nothrow) ClassFactory;
  if (factory == nullptr) return E_OUTOFMEMORY;
  const HRESULT found = factory->QueryInterface(wantedInterface, object);
  factory->Release();
  return found;
}

}  // namespace vexnumkr::server
