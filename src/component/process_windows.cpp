#include <windows.h>

#include "component/process.h"

void vexnumkr::stayLoaded() noexcept {
  HMODULE self = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_PIN,
                     reinterpret_cast<const wchar_t*>(&stayLoaded), &self);
}

bool vexnumkr::hasDisplay() { return true; }
