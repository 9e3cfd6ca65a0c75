// The Windows headers of automation, without what they would define besides.
#pragma once

#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
// The smart pointer's header knows this name; without it, it would bring in another platform's.
#define __WRL_CLASSIC_COM__  // NOLINT(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)

#include <windows.h>
//
#include <ole2.h>
#include <oleauto.h>
#include <wrl/client.h>

namespace vexnumkr::automation {

using Microsoft::WRL::ComPtr;

}  // namespace vexnumkr::automation
