#include "adapters/automation/components/automation_host.h"

#include <memory>
#include <utility>

#include <vexnumkr/error.h>

#include "adapters/automation/ado/connection.h"
#include "adapters/automation/com/bstr.h"
#include "adapters/automation/com/disabled_windows.h"
#include "adapters/automation/com/late_bound.h"

namespace vexnumkr::automation {
namespace {

class RegisteredBookingCircles final : public BookingCircleDialog {
 public:
  explicit RegisteredBookingCircles(LateBound object) : object_(std::move(object)) {}

  void Connection(std::shared_ptr<vexnumkr::Connection> connection) override {
    if (connection == nullptr) throw Error::objectNotSet();
    object_.putReference("Connection", Variant(adoConnection(*connection).object()));
    connection_ = std::move(connection);
  }
  void MultiSelect(bool on) override { object_.put("MultiSelect", Variant(on)); }
  void Show(const std::string& origin, std::int32_t number) override {
    // The administration's window is modal for windows of its own kind only; and nobody is to go on
    // with the dialog while the provider handles messages.
    DisabledWindows others;
    others.disable([](HWND) { return true; });
    // Whoever lets the component go meanwhile lets this go as well.
    LateBound object = object_;
    const std::shared_ptr<vexnumkr::Connection> connection = connection_;
    // The host's statements go past the component, and are to be part of its transaction.
    if (connection != nullptr) adoConnection(*connection).beginToChange();
    const Variant forOrigin(origin);
    const Variant selection(number);
    object.call("Show", {&forOrigin, &selection});
  }

 private:
  LateBound object_;
  std::shared_ptr<vexnumkr::Connection> connection_;
};

class RegisteredSettings final : public SettingsStore {
 public:
  explicit RegisteredSettings(LateBound object) : object_(std::move(object)) {}

  void Init(std::int32_t reserved, Connection& connection) override {
    const Variant first(reserved);
    const Variant second(adoConnection(connection).object());
    object_.call("Init", {&first, &second});
  }

  void GetSetting(const std::string& section, const std::string& key, std::string& value,
                  const std::string& profile, const std::string& user,
                  const std::string& defaultValue) override {
    const Variant inSection(section);
    const Variant ofKey(key);
    Variant delivered(value);
    const Variant target = Variant::reference(V_BSTR(&delivered.get()));
    const Variant inProfile(profile);
    const Variant ofUser(user);
    const Variant otherwise(defaultValue);
    object_.call("GetSetting", {&inSection, &ofKey, &target, &inProfile, &ofUser, &otherwise});
    value = toUtf8(V_BSTR(&delivered.get()));
  }

  void SaveSetting(const std::string& section, const std::string& key, const std::string& value,
                   const std::string& profile) override {
    const Variant inSection(section);
    const Variant ofKey(key);
    const Variant text(value);
    const Variant inProfile(profile);
    object_.call("SaveSetting", {&inSection, &ofKey, &text, &inProfile});
  }

 private:
  LateBound object_;
};

}  // namespace

std::unique_ptr<HostComponent> AutomationHost::CreateObject(const std::string& name) {
  if (name == component_name::bookingCircles)
    return std::make_unique<RegisteredBookingCircles>(LateBound::create(name));
  if (name == component_name::settings)
    return std::make_unique<RegisteredSettings>(LateBound::create(name));
  throw Error::cannotCreateObject();
}

}  // namespace vexnumkr::automation
