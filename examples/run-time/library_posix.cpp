#include <dlfcn.h>

#include <stdexcept>

#include "library.h"

const char* const installedLibrary = "libvexnumkr.so.2";

Library::Library(const char* file) : handle_(dlopen(file, RTLD_NOW)) {
  if (handle_ == nullptr) throw std::runtime_error(dlerror());
}

Library::~Library() { dlclose(handle_); }

void* Library::address(const char* name) const {
  void* found = dlsym(handle_, name);
  if (found == nullptr) throw std::runtime_error(dlerror());
  return found;
}
