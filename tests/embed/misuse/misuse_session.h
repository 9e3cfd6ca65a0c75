// A host on a sample company, for the tests of what hosts must not do.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <vexnumkr/adapters.h>
#include <vexnumkr/component.h>

#include "app/sample_database.h"
#include "embed/misuse/hasty_user.h"
#include "embed/misuse/rude_host.h"
#include "support/faults/hooked_connection.h"

namespace vexnumkr::test {

/// Which of the calls of a database layer stand for all: of those that go from row to row, the same
/// many times over, a few.
class SampledCalls {
 public:
  bool takes(const std::string& member) { return member != "MoveNext" || rows_++ % 37 == 0; }

 private:
  int rows_ = 0;
};

class MisuseSession : public ::testing::Test {
 protected:
  MisuseSession() { renewAll(); }

  /// A new company, and everything else on it.
  void renewAll() {
    component.reset();
    connection.reset();
    real.reset();
    database.emplace();
    renew();
  }
  /// A new component and a new connection of the host's; what is stored now counts as unchanged.
  void renew() {
    before_ = stored();
    component = createVXNummernkreise(host);
    real = database->connect();
    connection = std::make_shared<HookedConnection>(real, hooks);
  }

  bool init(std::int32_t application = 2) {
    return component->Init(connection, application, "Becker", "20270115");
  }

  /// What is stored, read on another connection.
  std::vector<Row> stored() const {
    std::vector<Row> all;
    for (const char* select : {"SELECT * FROM Nummernkreise ORDER BY 1, 2",
                               "SELECT * FROM Nummernkreis_Zuordnung ORDER BY 1, 2, 3, 4"})
      for (Row& row : database->rows(select)) all.push_back(std::move(row));
    return all;
  }
  bool isUnchanged() const { return stored() == before_; }
  /// Whether the host's connection has no transaction of somebody's open.
  bool isFree() const {
    try {
      real->BeginTrans();
      real->RollbackTrans();
      return true;
    } catch (const Error&) {
      return false;
    }
  }
  /// Whether the host's connection tells somebody of its waits for locks.
  bool tellsOfWaits() const {
    const auto* hooked = dynamic_cast<const HookedConnection*>(connection.get());
    return hooked != nullptr && hooked->tellsOfWaits();
  }
  static bool hasBox(const std::vector<std::string>& boxes, const std::string& start) {
    for (const std::string& box : boxes)
      if (box.rfind(start, 0) == 0) return true;
    return false;
  }

  std::optional<SampleDatabase> database;
  RudeHost host;
  Hooks hooks;
  HastyUser user;
  std::shared_ptr<Connection> real;
  std::shared_ptr<Connection> connection;
  std::unique_ptr<VXNummernkreise> component;

 private:
  std::vector<Row> before_;
};

}  // namespace vexnumkr::test
