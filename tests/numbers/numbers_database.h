// A company in a database of a test's own, on the engine that the test run asks for.
//
//   class DrawTest : public NumbersDatabase {};
//   TEST_F(DrawTest, ...) {
//     range(1, "RE", 100, 100, 199);
//     assign("Anna", 1, "RE");
//     ...
//   }
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include <vexnumkr/database.h>

#include "support/fresh_database.h"

namespace vexnumkr::test {

/// The values of a range that tests seldom care for.
struct RangeExtras {
  bool active = true;
  std::string sharedKey{};
  std::string mask{};
  std::string description = "Beleg";
  std::int32_t sortIndex = 1;
};

class NumbersDatabase : public ::testing::Test {
 protected:
  /// Makes the host's tables, empty.
  NumbersDatabase();

  Connection& connection() { return *connection_; }
  /// Another one to the same database.
  std::shared_ptr<Connection> connect() const;
  const FreshDatabase& database() const { return database_; }
  bool isSqlite() const { return database_.engine().ends_with("sqlite"); }

  /// Runs a statement on a connection of the test's own, committed at once.
  void sql(const std::string& text);
  /// The rows of a select, the cells of `fields` joined by "|"; NULL reads as NULL.
  std::vector<std::string> rows(const std::string& select, const std::vector<std::string>& fields);

  void range(std::int32_t circle, const std::string& key, std::int32_t start, std::int32_t current,
             std::int32_t end, const RangeExtras& extras = {});
  void circle(std::int32_t circle, const std::string& description,
              const std::string& origin = "ORB");
  void assign(const std::string& user, std::int32_t circle, const std::string& key,
              const std::string& origin = "ORB");
  void user(const std::string& name);
  void special(const std::string& ownKey, const std::string& key, bool active,
               const std::string& origin = "ORB");
  /// The current value of a range.
  std::int32_t current(std::int32_t circle, const std::string& key);

 private:
  FreshDatabase database_;
  std::shared_ptr<Connection> connection_;
  std::shared_ptr<Connection> own_;
};

}  // namespace vexnumkr::test
