// Failures of automation objects as the component's own errors.
#pragma once

#include <cstdint>

#include <vexnumkr/error.h>

#include "adapters/automation/com/com_headers.h"

namespace vexnumkr::automation {

/// Run-time error numbers of late-bound calls, beyond those of error.h.
namespace runtime_number {
inline constexpr std::int32_t objectRequired = 424;
inline constexpr std::int32_t noAutomation = 430;
inline constexpr std::int32_t unknownMember = 438;
inline constexpr std::int32_t automationError = 440;
}  // namespace runtime_number

/// The error for a failed call that says nothing but its code. A code that means a run-time error
/// gets that number and its text, any other keeps itself and gets the system's text.
Error failureOf(HRESULT code);

/// The error that a call has raised. Errors of automation objects (0x800Annnn) have the number nnnn
/// that a host's programs see; database errors keep their whole code, e.g. -2147217900. Frees what
/// `raised` holds.
Error failureOf(EXCEPINFO& raised);

/// Throws the error where `code` is a failure.
void raiseOnFailure(HRESULT code);

/// Error 424.
Error objectRequired();

}  // namespace vexnumkr::automation
