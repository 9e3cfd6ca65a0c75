// The host of a scenario: components that do what the scenario says.
#pragma once

#include <memory>
#include <set>
#include <string>
#include <vector>

#include <vexnumkr/host_components.h>

namespace vexnumkr::scenario {

/// Offers the booking-circle administration and the settings store; texts and boxes are plain.
///
/// The booking-circle administration shows no window: shown, it runs the statements that the
/// scenario has queued. The settings store is the stand-alone host's. Both work on the real
/// connection behind a scripted one, so what they send is not part of the component's statements.
class ScriptedHost : public HostComponents {
 public:
  /// Queues a statement for the next showing of the booking-circle administration.
  void queueForBookingCircles(const std::string& statement) { queued_.push_back(statement); }
  /// From now on there is no component of that name; names have no case.
  void withhold(const std::string& name);

  std::unique_ptr<HostComponent> CreateObject(const std::string& name) override;
  HostTexts* Texts() override { return nullptr; }
  HostMessages* Messages() override { return nullptr; }

 private:
  std::vector<std::string> queued_;
  std::set<std::string> withheld_;
};

}  // namespace vexnumkr::scenario
