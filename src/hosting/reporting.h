// How failures are reported and questions are asked.
#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include <vexnumkr/error.h>
#include <vexnumkr/value.h>

#include "hosting/host_context.h"

namespace vexnumkr {

/// Where a failure happened, as its report names it.
struct Procedure {
  const char* module;
  const char* name;
};

namespace basAllgemein {

inline constexpr const char* moduleName = "basAllgemein";

/// Shows an error box. Application 1 has it shown by the host's message facility, where there is
/// one; everybody else gets a standard box titled "Fehler " and the number. `kind` is 3 for
/// failures.
void ShowInfoBox(HostContext& context, std::int32_t number, const std::string& description,
                 const std::string& procedure, std::int16_t kind, std::int32_t buttons,
                 const std::string& module);

/// Asks the user; returns the code of the button pressed. Applications other than 1 and 2 are not
/// asked: the answer is 0, as after any failure.
std::int32_t MsgBoxEx(HostContext& context, const std::string& prompt, std::int32_t buttons,
                      const std::string& title);

/// `replacement` for Null, nothing and an empty text, else `value`.
Value NzValue(const Value& value, const Value& replacement);

}  // namespace basAllgemein

/// The exception being handled as the failure that users are told of: one that is no Error is
/// error 7 where memory has run out, else 51. REQUIRES: called in a handler.
Error currentFailure();

/// Reports the exception being handled as a failure of `procedure`. REQUIRES: called in a handler.
void reportCurrentFailure(HostContext& context, const Procedure& procedure) noexcept;

/// Runs `body` as the body of a procedure: a failure ends it and is reported under its name. What
/// the body left in its result stays the procedure's result.
template <class Body>
void reportingFailures(HostContext& context, const Procedure& procedure, Body&& body) {
  try {
    std::forward<Body>(body)();
  } catch (...) {
    reportCurrentFailure(context, procedure);
  }
}

/// Runs `body` and ignores its failure, for steps that must not stop what follows.
template <class Body>
void ignoringFailures(Body&& body) noexcept {
  try {
    std::forward<Body>(body)();
  } catch (...) {  // NOLINT(bugprone-empty-catch): ignoring it is the purpose
  }
}

}  // namespace vexnumkr
