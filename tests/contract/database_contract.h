// What every implementation of the database interfaces has to do, as tests.
//
// An implementation is tested by a program of its own that links vexnumkr_database_contract and
// names the implementation:
//
//   INSTANTIATE_TEST_SUITE_P(InMemory, DatabaseContract,
//                            testing::Values(Implementation{"InMemory", startInMemory, {…}}));
//
// The statements are such as every SQL engine takes. What only one engine does has tests of its
// own.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

#include <vexnumkr/database.h>
#include <vexnumkr/error.h>

#include "contract/database_language.h"

namespace vexnumkr::test {

/// A fresh, empty database. It is gone with this object.
class TestDatabase {
 public:
  virtual ~TestDatabase() = default;
  /// Another open connection to it; the first one is what a host would hand over.
  virtual std::shared_ptr<Connection> connect() = 0;

 protected:
  TestDatabase() = default;
  TestDatabase(const TestDatabase&) = default;
  TestDatabase& operator=(const TestDatabase&) = default;
};

/// The engine's own numbers for failures that every engine knows.
struct EngineNumbers {
  std::int32_t syntaxError;
  std::int32_t unknownTable;
  std::int32_t duplicateKey;
};

struct Implementation {
  std::string name;
  std::function<std::unique_ptr<TestDatabase>()> start;
  EngineNumbers numbers;

  friend void PrintTo(const Implementation& implementation, std::ostream* out) {
    *out << implementation.name;
  }
};

/// Begins with the tables `Werte` (key `Nr`) and `Sonderkreise` (key `Herkunft`, `U_NSchl`), empty.
class DatabaseContract : public ::testing::TestWithParam<Implementation> {
 protected:
  void SetUp() override;

  /// Runs a statement on `conn` and returns the records affected.
  std::int32_t run(const std::string& text) { return test::run(*conn, text); }
  std::vector<std::string> rows(const std::string& select, Fields fields) {
    return test::rows(*conn, select, fields);
  }
  /// The rows as another connection sees them.
  std::vector<std::string> committedRows(const std::string& select, Fields fields) {
    return test::rows(*database->connect(), select, fields);
  }
  /// Two origins with special ranges; those of "ORB" look alike without their keys.
  void fillSonderkreise();
  /// `select` opened on `conn` so that it can be written.
  std::unique_ptr<Recordset> openWritable(const std::string& select);

  std::unique_ptr<TestDatabase> database;
  std::shared_ptr<Connection> conn;
};

}  // namespace vexnumkr::test
