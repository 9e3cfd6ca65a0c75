// The four functions by which Windows knows an in-process server.
#include "windows/class_factory.h"
#include "windows/interface.h"
#include "windows/module.h"
#include "windows/registration.h"

using namespace vexnumkr::server;

STDAPI DllGetClassObject(REFCLSID wantedClass, REFIID wantedInterface, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (wantedClass != classId) return CLASS_E_CLASSNOTAVAILABLE;
  return createClassFactory(wantedInterface, object);
}

STDAPI DllCanUnloadNow() { return Module::instance().canUnload() ? S_OK : S_FALSE; }

STDAPI DllRegisterServer() {
  try {
    return registerServer(Module::path());
  } catch (...) {
    return E_OUTOFMEMORY;
  }
}

STDAPI DllUnregisterServer() {
  try {
    return unregisterServer();
  } catch (...) {
    return E_OUTOFMEMORY;
  }
}
