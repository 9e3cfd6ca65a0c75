// The stand-ins as an in-process server: its classes, their registration and its four exports.
//
// The ADO classes are registered under their real identifiers, in place of those that the system
// has. That is meant for a Wine prefix of the tests' own, and refused everywhere else.

#include <olectl.h>

#include <array>
#include <string>

#include "adapters/automation/com/bstr.h"
#include "adapters/automation/com/com_headers.h"
#include "automation/standins/command_object.h"
#include "automation/standins/connection_object.h"
#include "automation/standins/host_objects.h"
#include "automation/standins/interception.h"
#include "automation/standins/recordset_object.h"

namespace vexnumkr::standins {
namespace {

template <typename Class>
DispatchObject* create() {
  return new Class;
}

struct ServedClass {
  const wchar_t* progId;
  const wchar_t* clsid;
  DispatchObject* (*create)();
};

constexpr std::array<ServedClass, 5> classes = {{
    {L"ADODB.Connection", L"{00000514-0000-0010-8000-00AA006D2EA4}", create<ConnectionObject>},
    {L"ADODB.Command", L"{00000507-0000-0010-8000-00AA006D2EA4}", create<CommandObject>},
    {L"ADODB.Recordset", L"{00000535-0000-0010-8000-00AA006D2EA4}", create<RecordsetObject>},
    {L"vxtComDlg.WWSDialog", L"{5B0C8E6E-3C0B-4B58-8A53-0F3C1F0A7701}",
     create<BookingCircleObject>},
    {L"VEXSetting.VXSettings", L"{5B0C8E6E-3C0B-4B58-8A53-0F3C1F0A7702}", create<SettingsObject>},
}};

class Factory final : public IClassFactory {
 public:
  explicit Factory(const ServedClass& served) : served_(served) {}
  virtual ~Factory() = default;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    const bool isKnown = id == IID_IUnknown || id == IID_IClassFactory;
    *object = isKnown ? this : nullptr;
    if (!isKnown) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** object) override {
    *object = nullptr;
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    HRESULT code = S_OK;
    const std::string name = automation::toUtf8(std::wstring_view(served_.progId));
    if (isIntercepted(("new " + name).c_str(), code)) return code;
    return adopt<IDispatch>(served_.create()).CopyTo(id, object);
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL /*lock*/) override { return S_OK; }

 private:
  const ServedClass& served_;
  const ModuleUse use_;
  ULONG references_ = 1;
};

bool isWine() {
  return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
}

std::wstring libraryPath() {
  HMODULE library = nullptr;
  GetModuleHandleExW(
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
      reinterpret_cast<LPCWSTR>(&libraryPath), &library);
  std::wstring path(MAX_PATH, L'\0');
  path.resize(GetModuleFileNameW(library, path.data(), MAX_PATH));
  return path;
}

bool setKey(const std::wstring& key, const wchar_t* name, const std::wstring& text) {
  return RegSetKeyValueW(HKEY_CLASSES_ROOT, key.c_str(), name, REG_SZ, text.c_str(),
                         static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t))) == ERROR_SUCCESS;
}

bool enter(const ServedClass& served) {
  const std::wstring server = std::wstring(L"CLSID\\") + served.clsid + L"\\InprocServer32";
  return setKey(server, nullptr, libraryPath()) &&
         setKey(server, L"ThreadingModel", L"Apartment") &&
         setKey(std::wstring(served.progId) + L"\\CLSID", nullptr, served.clsid);
}

}  // namespace
}  // namespace vexnumkr::standins

using namespace vexnumkr::standins;

extern "C" HRESULT STDAPICALLTYPE DllRegisterServer() {
  if (!isWine()) return E_NOTIMPL;
  for (const ServedClass& served : classes)
    if (!enter(served)) return SELFREG_E_CLASS;
  return S_OK;
}

// What ADO's classes were before is not known any more; the prefix is thrown away.
extern "C" HRESULT STDAPICALLTYPE DllUnregisterServer() { return E_NOTIMPL; }

extern "C" HRESULT STDAPICALLTYPE DllGetClassObject(REFCLSID wanted, REFIID id, void** object) {
  *object = nullptr;
  for (const ServedClass& served : classes) {
    CLSID known = {};
    CLSIDFromString(served.clsid, &known);
    if (known != wanted) continue;
    return adopt<IClassFactory>(new Factory(served)).CopyTo(id, object);
  }
  return CLASS_E_CLASSNOTAVAILABLE;
}

extern "C" HRESULT STDAPICALLTYPE DllCanUnloadNow() {
  return ModuleUse::count() == 0 ? S_OK : S_FALSE;
}

extern "C" long objectCount() { return ModuleUse::count(); }
