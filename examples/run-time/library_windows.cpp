#include <windows.h>

#include <system_error>

#include "library.h"

const char* const installedLibrary = "libvexnumkr-2.dll";

namespace {

[[noreturn]] void fail(const char* name) {
  throw std::system_error(static_cast<int>(GetLastError()), std::system_category(), name);
}

}  // namespace

Library::Library(const char* file) : handle_(LoadLibraryA(file)) {
  if (handle_ == nullptr) fail(file);
}

Library::~Library() { FreeLibrary(static_cast<HMODULE>(handle_)); }

void* Library::address(const char* name) const {
  const auto found = GetProcAddress(static_cast<HMODULE>(handle_), name);
  if (found == nullptr) fail(name);
  return reinterpret_cast<void*>(found);
}
