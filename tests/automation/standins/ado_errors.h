// Failures as ADO's objects raise them.
#pragma once

#include <string>

#include <vexnumkr/error.h>

#include "adapters/automation/com/com_headers.h"

namespace vexnumkr::standins {

struct RaisedCode {
  HRESULT scode;
  std::string source;
};

/// ADO's own failures have their number in an automation error (3021: 0x800A0BCD), a provider's the
/// code of what went wrong (0x80040E14: the statement is not understood).
RaisedCode raisedCode(const Error& error);

}  // namespace vexnumkr::standins
