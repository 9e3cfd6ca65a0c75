// The same scenario row by row and in sets.
#pragma once

#include <filesystem>
#include <string>

namespace vexnumkr::scenario {

/// What a scenario prints when the component asks the database in one way and in the other, but for
/// the statements and the commands that choose. The two are to be the same.
struct BothWays {
  std::string rowByRow;
  std::string inSets;

  /// The first line in which they differ, with some around it; empty where they do not.
  std::string difference() const;
};

/// Runs the scenario with the program `driver`, each time on a database of its own of the engine
/// under test. REQUIRES: a QCoreApplication.
BothWays runBothWays(const std::filesystem::path& driver, const std::string& scenario);

}  // namespace vexnumkr::scenario
