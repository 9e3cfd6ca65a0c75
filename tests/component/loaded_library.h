// The library as hosts meet it that load it at run time.
#pragma once

#include <dlfcn.h>

#include <memory>

namespace vexnumkr::test {

struct CloseLibrary {
  void operator()(void* library) const { dlclose(library); }
};

using Library = std::unique_ptr<void, CloseLibrary>;

inline Library load() { return Library(dlopen(VEXNUMKR_LIBRARY, RTLD_NOW)); }

inline bool isLoaded() {
  return Library(dlopen(VEXNUMKR_LIBRARY, RTLD_NOW | RTLD_NOLOAD)) != nullptr;
}

template <typename Function>
Function* function(const Library& library, const char* name) {
  return reinterpret_cast<Function*>(dlsym(library.get(), name));
}

#define FUNCTION(library, name) ::vexnumkr::test::function<decltype(name)>(library, #name)

}  // namespace vexnumkr::test
