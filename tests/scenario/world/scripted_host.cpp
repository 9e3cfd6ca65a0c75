#include "scenario/world/scripted_host.h"

#include <algorithm>
#include <utility>

#include <vexnumkr/error.h>

#include "app/components/settings_store.h"
#include "support/faults/scripted_connection.h"

namespace vexnumkr::scenario {
namespace {

std::string inSmallLetters(std::string name) {
  std::transform(name.begin(), name.end(), name.begin(), [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  });
  return name;
}

class ScriptedBookingCircles : public BookingCircleDialog {
 public:
  explicit ScriptedBookingCircles(std::vector<std::string>& queued) : queued_(queued) {}

  void Connection(std::shared_ptr<vexnumkr::Connection> connection) override {
    connection_ = std::move(connection);
  }
  void MultiSelect(bool) override {}

  // Statements behind one that fails are dropped: they belonged to this showing.
  void Show(const std::string&, std::int32_t) override {
    const std::vector<std::string> statements = std::exchange(queued_, {});
    if (connection_ == nullptr) throw Error::objectNotSet();
    std::int32_t affected = 0;
    for (const std::string& statement : statements)
      test::realConnection(*connection_).Execute(statement, affected);
  }

 private:
  std::vector<std::string>& queued_;
  std::shared_ptr<vexnumkr::Connection> connection_;
};

class ScriptedSettings : public app::TableSettings {
 public:
  void Init(std::int32_t reserved, vexnumkr::Connection& connection) override {
    app::TableSettings::Init(reserved, test::realConnection(connection));
  }
};

}  // namespace

void ScriptedHost::withhold(const std::string& name) { withheld_.insert(inSmallLetters(name)); }

std::unique_ptr<HostComponent> ScriptedHost::CreateObject(const std::string& name) {
  const std::string wanted = inSmallLetters(name);
  if (withheld_.count(wanted) == 0) {
    if (wanted == inSmallLetters(component_name::bookingCircles))
      return std::make_unique<ScriptedBookingCircles>(queued_);
    if (wanted == inSmallLetters(component_name::settings))
      return std::make_unique<ScriptedSettings>();
  }
  throw Error::cannotCreateObject();
}

}  // namespace vexnumkr::scenario
