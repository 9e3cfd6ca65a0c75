#include "platform/reporter.h"

#include <new>

namespace vexnumkr {
namespace {

// As users of the host applications know them.
constexpr std::int32_t outOfMemory = 7;
constexpr std::int32_t internalError = 51;

}  // namespace

Error currentFailure() {
  try {
    throw;
  } catch (const Error& error) {
    return error;
  } catch (const std::bad_alloc&) {
    return Error(outOfMemory, "", "Nicht genügend Speicher");
  } catch (const std::exception& error) {
    return Error(internalError, "", error.what());
  } catch (...) {
    return Error(internalError, "", "Interner Fehler");
  }
}

void reportCurrentFailure(Reporter& reporter, const Procedure& procedure) noexcept {
  ignoringFailures([&] { reporter.failed(procedure, currentFailure()); });
}

}  // namespace vexnumkr
