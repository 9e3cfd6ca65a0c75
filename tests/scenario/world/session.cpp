#include "scenario/world/session.h"

#include <vexnumkr/adapters.h>

#include "adapters/qtforms/qt_forms_toolkit.h"
#include "scenario/windows/failure.h"

namespace vexnumkr::scenario {

Session::Session(const std::string& connectionString) : database_(connectionString) {
  database_.createTables();
  connection_ = test::scriptedConnection(openQtSqlConnection(connectionString), script_);
}

void Session::createComponent() {
  if (component_ != nullptr) return;
  component_ = std::make_unique<QtComponent>(host_, data_.access, makeQtFormsToolkit(),
                                             std::chrono::steady_clock::now);
}

bool Session::init() {
  if (data_.date) return component().Init(connection_, data_.application, data_.user, *data_.date);
  return component().Init(connection_, data_.application, data_.user);
}

void Session::release() {
  static_cast<void>(component());
  component_.reset();
}

QtComponent& Session::component() {
  if (component_ == nullptr) throw CannotDo("there is no component");
  return *component_;
}

vexnumkr::Session& Session::core() { return component().session(); }

}  // namespace vexnumkr::scenario
