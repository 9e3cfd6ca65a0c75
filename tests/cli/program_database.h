// The program run on a company of a test's own.
#pragma once

#include <string>
#include <vector>

#include "app/program.h"
#include "numbers/numbers_database.h"

namespace vexnumkr::test {

class ProgramDatabase : public NumbersDatabase {
 protected:
  /// Runs the program with these arguments and the database's connection in its environment.
  ProgramRun vexnumkr(const std::vector<std::string>& arguments);
  /// The same where it has to end with that status; returns what it printed.
  std::string printed(const std::vector<std::string>& arguments, int exitCode = 0);
};

}  // namespace vexnumkr::test
