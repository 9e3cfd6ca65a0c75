// What keeps a database from storing what a save sends to it, on each engine that has it.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace vexnumkr::test {

enum class Outcome {
  refused,       ///< The engine's own failure ends the save.
  notAsWritten,  ///< The engine takes every statement; reading back ends the save.
  saved          ///< Everything is stored.
};

/// How to bring it about, and what a save of RefusedRowsTest's table comes to.
struct Cause {
  Outcome outcome = Outcome::refused;
  /// On a connection with all rights; "{user}" is the user who saves, who has all rights to the
  /// five tables before.
  std::vector<std::string> arrange;
  /// Leaves the tables as they were before.
  std::vector<std::string> remove;
  /// The save is that of a user of the server who owns nothing.
  bool asUser = false;
};

/// MariaDB where it takes values that do not fit, besides the names of schemas.
inline constexpr const char* notStrict = "mariadb, not strict";

struct RefusedRowClass {
  std::string name;
  std::map<std::string, Cause> causes;  ///< By the name of the engine's schema, and notStrict.
};

/// All of them, in the order in which the documentation has them.
std::vector<RefusedRowClass> refusedRowClasses();

}  // namespace vexnumkr::test
