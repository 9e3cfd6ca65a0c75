// The boxes in which users are told of failures and asked questions.
#pragma once

#include <cstdint>
#include <string>

#include <vexnumkr/host_components.h>

#include "platform/forms.h"
#include "platform/progress.h"
#include "platform/reporter.h"

namespace vexnumkr {

/// Application 1 has its boxes shown by the host's message facility, where there is one. While a
/// box is open the work that is going on rests.
class Boxes final : public Reporter {
 public:
  /// All are borrowed.
  Boxes(FormsToolkit& forms, HostComponents& host, Progress& progress)
      : forms_(forms), host_(host), progress_(progress) {}

  std::int32_t application() const { return application_; }
  void application(std::int32_t code) { application_ = code; }

  /// Shows an error box: for application 1 the host's, for everybody else a standard box titled
  /// "Fehler " and the number. `kind` is 3 for failures.
  void ShowInfoBox(std::int32_t number, const std::string& description,
                   const std::string& procedure, std::int16_t kind, std::int32_t buttons,
                   const std::string& module);

  /// Asks the user; returns the code of the button pressed. Applications other than 1 and 2 are not
  /// asked: the answer is 0, as after any failure.
  std::int32_t MsgBoxEx(const std::string& prompt, std::int32_t buttons, const std::string& title);

  /// Shows the failure of a procedure. A failure of showing it is ignored.
  void failed(const Procedure& procedure, const Error& failure) noexcept override;

 private:
  bool usesHostsBoxes() const { return application_ == 1; }
  bool shownByHost(std::int32_t number, const std::string& description,
                   const std::string& procedure, std::int16_t kind, std::int32_t buttons,
                   const std::string& module);

  FormsToolkit& forms_;
  HostComponents& host_;
  Progress& progress_;
  std::int32_t application_ = 0;
};

}  // namespace vexnumkr
