#include <dlfcn.h>

#include <QtGlobal>

#include "component/process.h"

void vexnumkr::stayLoaded() noexcept {
  Dl_info self = {};
  if (dladdr(reinterpret_cast<const void*>(&stayLoaded), &self) != 0)
    dlopen(self.dli_fname, RTLD_LAZY | RTLD_NOLOAD | RTLD_NODELETE);
}

bool vexnumkr::hasDisplay() {
  return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
         qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
}
