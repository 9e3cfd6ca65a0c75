// The program run on a company of a test's own.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "app/program.h"
#include "numbers/numbers_database.h"

namespace vexnumkr::test {

class ProgramDatabase : public NumbersDatabase {
 protected:
  /// Runs the program with these arguments, and the database's connection and `environment` in its
  /// own.
  ProgramRun vexnumkr(const std::vector<std::string>& arguments,
                      const std::map<std::string, std::string>& environment = {});
  /// The same where it has to end with that status; returns what it printed.
  std::string printed(const std::vector<std::string>& arguments, int exitCode = 0);
};

}  // namespace vexnumkr::test
