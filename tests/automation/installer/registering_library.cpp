// A library file that does nothing but register itself, in the way of VEXNumKr.dll: it takes that
// one's place where the installer is tested without Qt.
#include <array>
#include <string>

#include "windows/registration.h"

namespace {

HINSTANCE self = nullptr;

std::wstring path() {
  std::array<wchar_t, MAX_PATH> text = {};
  return {text.data(), GetModuleFileNameW(self, text.data(), MAX_PATH)};
}

}  // namespace

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD, LPVOID) {
  self = instance;
  return TRUE;
}

extern "C" HRESULT WINAPI DllRegisterServer() { return vexnumkr::server::registerServer(path()); }

extern "C" HRESULT WINAPI DllUnregisterServer() { return vexnumkr::server::unregisterServer(); }
