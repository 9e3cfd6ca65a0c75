#include "windows/module.h"

namespace vexnumkr::server {
namespace {

// An address in the library file, by which Windows finds it.
const wchar_t* ownAddress() { return reinterpret_cast<const wchar_t*>(&Module::path); }

}  // namespace

Module& Module::instance() {
  static Module module;
  return module;
}

void Module::stay() {
  if (stays_.exchange(true)) return;
  lock();
  HMODULE module = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_PIN,
                     ownAddress(), &module);
}

std::wstring Module::path() {
  HMODULE module = nullptr;
  GetModuleHandleExW(
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
      ownAddress(), &module);
  std::wstring path(MAX_PATH, L'\0');
  DWORD length = 0;
  while ((length = GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()))) ==
         path.size())
    path.resize(2 * path.size());
  path.resize(length);
  return path;
}

}  // namespace vexnumkr::server
