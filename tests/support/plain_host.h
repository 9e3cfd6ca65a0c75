// A host with the components that a test gives it.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <vexnumkr/error.h>
#include <vexnumkr/host_components.h>

#include "platform/services.h"

namespace vexnumkr::test {

/// A clock that stands still.
class FixedClock final : public Clock {
 public:
  explicit FixedClock(std::string date) : date_(std::move(date)) {}
  std::string today() const override { return date_; }

 private:
  std::string date_;
};

/// What the booking-circle administration of a PlainHost was told.
struct CircleDialogCalls {
  std::shared_ptr<Connection> connection;
  std::vector<bool> multiSelect;
  std::vector<std::pair<std::string, std::int32_t>> shown;
  std::function<void(Connection&)> whenShown;  // the user's work in it
  std::string failing;                         // the member that fails, with error 4712

  void enter(const char* member) const {
    if (failing == member) throw Error(4712, "Host", "Der Host versagt");
  }
};

class PlainCircleDialog final : public BookingCircleDialog {
 public:
  explicit PlainCircleDialog(CircleDialogCalls& calls) : calls_(calls) {}
  void Connection(std::shared_ptr<vexnumkr::Connection> connection) override {
    calls_.enter("Connection");
    calls_.connection = std::move(connection);
  }
  void MultiSelect(bool on) override {
    calls_.enter("MultiSelect");
    calls_.multiSelect.push_back(on);
  }
  void Show(const std::string& origin, std::int32_t number) override {
    calls_.enter("Show");
    calls_.shown.emplace_back(origin, number);
    if (calls_.whenShown) calls_.whenShown(*calls_.connection);
  }

 private:
  CircleDialogCalls& calls_;
};

class PlainHost final : public HostComponents {
 public:
  std::unique_ptr<HostComponent> CreateObject(const std::string& name) override {
    if (name == component_name::bookingCircles && makeInstead) return makeInstead();
    if (name == component_name::bookingCircles && hasCircleDialog)
      return std::make_unique<PlainCircleDialog>(circleDialog);
    throw Error::cannotCreateObject();
  }
  HostTexts* Texts() override { return texts; }
  HostMessages* Messages() override { return messages; }

  bool hasCircleDialog = true;
  std::function<std::unique_ptr<HostComponent>()> makeInstead;  // of the circle dialog
  CircleDialogCalls circleDialog;
  HostTexts* texts = nullptr;
  HostMessages* messages = nullptr;
};

}  // namespace vexnumkr::test
