// The component under a scenario, and what it is made with.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "component/composition.h"
#include "scenario/world/database.h"
#include "scenario/world/scripted_host.h"
#include "support/faults/scripted_connection.h"

namespace vexnumkr::scenario {

/// What `Init` will hand over.
struct SessionData {
  std::int32_t application = 0;
  std::string user;
  std::optional<std::string> date;
  DatabaseAccess access = DatabaseAccess::rowByRow;  ///< Of the component made next.
};

/// The host's side of a scenario: its database with an open connection to it, its components and
/// the component object.
class Session {
 public:
  /// Creates the tables. Errors: the engine's.
  explicit Session(const std::string& connectionString);

  SessionData& data() { return data_; }
  ScenarioDatabase& database() { return database_; }
  test::ConnectionScript& connections() { return script_; }
  ScriptedHost& host() { return host_; }

  /// Creates the component unless there is one.
  void createComponent();
  /// `Init` with the session data. REQUIRES: a component.
  bool init();
  /// Releases the component. Error: CannotDo when there is none.
  void release();

  /// Errors: CannotDo when there is no component.
  QtComponent& component();
  vexnumkr::Session& core();

 private:
  SessionData data_;
  ScenarioDatabase database_;
  test::ConnectionScript script_;
  std::shared_ptr<Connection> connection_;
  ScriptedHost host_;
  std::unique_ptr<QtComponent> component_;
};

}  // namespace vexnumkr::scenario
