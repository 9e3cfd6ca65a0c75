// Statements for engines that are reached through an encoding of eight bits.
#pragma once

#include <string>

#include "platform/statement_gate.h"

namespace vexnumkr::qtsql {

/// `statement` in ASCII, for SQLite: a text literal with other characters is written as its bytes.
/// Names with such characters cannot be written at all and stay as they are.
std::string inAscii(const Statement& statement);

}  // namespace vexnumkr::qtsql
