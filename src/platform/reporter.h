// How procedures tell of their failures.
#pragma once

#include <utility>

#include <vexnumkr/error.h>

namespace vexnumkr {

/// Where a failure happened, as its report names it.
struct Procedure {
  const char* module;
  const char* name;
};

/// Raised by a step of work that the user has given up. It is no failure: procedures end and let it
/// pass without a word.
struct WorkCancelled {};

/// The module of everything that is no dialog of its own.
inline constexpr const char* generalModule = "basAllgemein";

/// Hears of every failure that ends a procedure. The procedure goes by its own word: what it has
/// found or changed until then stands.
class Reporter {
 public:
  virtual ~Reporter() = default;
  virtual void failed(const Procedure& procedure, const Error& failure) noexcept = 0;

 protected:
  Reporter() = default;
  Reporter(const Reporter&) = default;
  Reporter& operator=(const Reporter&) = default;
};

/// The exception being handled as the failure that users are told of: one that is no Error is
/// error 7 where memory has run out, else 51. REQUIRES: called in a handler.
Error currentFailure();

/// Reports the exception being handled as a failure of `procedure`. REQUIRES: called in a handler.
void reportCurrentFailure(Reporter& reporter, const Procedure& procedure) noexcept;

/// Runs `body` as the body of a procedure: a failure ends it and is reported under its name. What
/// the body left in its result stays the procedure's result. True unless it failed. Work that the
/// user has given up ends the procedure too, and those that it works for.
template <class Body>
bool reportingFailures(Reporter& reporter, const Procedure& procedure, Body&& body) {
  try {
    std::forward<Body>(body)();
    return true;
  } catch (const WorkCancelled&) {
    throw;
  } catch (...) {
    reportCurrentFailure(reporter, procedure);
    return false;
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
