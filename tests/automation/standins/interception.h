// How a test gets into the calls that the stand-ins receive.
#pragma once

#include "adapters/automation/com/com_headers.h"

namespace vexnumkr::standins {

/// What a test makes of the calls.
class Interceptor {
 public:
  /// Asked before each call of a member, e.g. "ADODB.Connection.IsolationLevel let", each creation
  /// by a class's name, "new ADODB.Command", and each end of an object, "end of ADODB.Command".
  /// Whether `outcome` is all that comes of it: nothing is done then, nothing answered or made. An
  /// end cannot be kept from happening.
  virtual bool intercept(const char* call, HRESULT& outcome) = 0;

 protected:
  ~Interceptor() = default;
};

/// Asks whoever intercepts.
bool isIntercepted(const char* call, HRESULT& outcome);

/// What the library exports for tests, by these names: "interceptCalls", from now on, null for
/// nobody, and "objectCount", how many objects there are, of all classes and of its own.
using InterceptCalls = void (*)(Interceptor*);
using ObjectCount = long (*)();

}  // namespace vexnumkr::standins
