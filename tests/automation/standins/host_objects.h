// The stand-ins for the components of a host.
#pragma once

#include "adapters/automation/com/late_bound.h"
#include "automation/standins/dispatch_object.h"

namespace vexnumkr::standins {

/// "vxtComDlg.WWSDialog": its Show(origin, 27) asks nobody and adds booking circle 77, "Vom Host",
/// through the connection that it was given.
class BookingCircleObject final : public DispatchObject {
 public:
  BookingCircleObject();

 private:
  void show(const Call& call);

  automation::LateBound connection_;
  bool multiSelect_ = true;
};

/// "VEXSetting.VXSettings": keeps its settings in the file that the environment variable
/// VEXNUMKR_SETTINGS names, a line "section/key=value" each, the last of a key being valid.
class SettingsObject final : public DispatchObject {
 public:
  SettingsObject();

 private:
  void read(const Call& call) const;
  void write(const Call& call) const;

  automation::LateBound connection_;
};

}  // namespace vexnumkr::standins
