// Tables of an engine that know no transactions, and what to do about them.
#pragma once

#include <string>
#include <vector>

#include <vexnumkr/error.h>

#include "engines/engine.h"

namespace vexnumkr {

/// A table that knows no transactions: its kind, and the statement that gives it some.
struct TableWithoutTransactions {
  std::string name;
  std::string kind;
  std::string remedy;
};

/// Selects the first of `tables`, which are plain names, that knows no transactions, as
/// Engine::withoutTransactions does; empty where the engine has no such tables, or none is given.
std::string selectWithoutTransactions(const Engine& engine, const std::vector<std::string>& tables);

/// The refusal of such a table, as an error (3251) of `source`: what was done to it could not be
/// taken back.
Error knowsNoTransactions(const TableWithoutTransactions& table, const char* source);

}  // namespace vexnumkr
