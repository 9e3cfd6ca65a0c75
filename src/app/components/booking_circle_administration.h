// The stand-alone host's booking-circle administration.
#pragma once

#include <memory>
#include <string>

#include <vexnumkr/host_components.h>

namespace vexnumkr::app {

/// "vxtComDlg.WWSDialog" of the stand-alone host: a window over Nummernkreis_Buchungskreise.
class BookingCircleAdministration : public BookingCircleDialog {
 public:
  void Connection(std::shared_ptr<vexnumkr::Connection> connection) override;
  void MultiSelect(bool on) override;
  /// Errors: 91 without a connection; the engine's when the booking circles cannot be read.
  void Show(const std::string& origin, std::int32_t number) override;

 private:
  std::shared_ptr<vexnumkr::Connection> connection_;
  bool multiSelect_ = false;
};

}  // namespace vexnumkr::app
