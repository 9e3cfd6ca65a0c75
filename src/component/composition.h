// Puts the component together for a Qt application.
#pragma once

#include <memory>

#include <vexnumkr/VXNummernkreise.h>
#include <vexnumkr/database_access.h>
#include <vexnumkr/host_components.h>

#include "adapters/qtforms/progress/qt_progress_display.h"
#include "hosting/nummernkreise.h"
#include "platform/services.h"

namespace vexnumkr {

/// The component with the Qt dialogs. `host` is borrowed and outlives it.
class QtComponent final : public VXNummernkreise {
 public:
  QtComponent(HostComponents& host, DatabaseAccess access);
  /// With forms of another kind; `now` tells how long work has lasted.
  QtComponent(HostComponents& host, DatabaseAccess access, std::unique_ptr<FormsToolkit> forms,
              ProgressClock now);
  ~QtComponent() override;

  bool Init(std::shared_ptr<Connection> Conn, std::int32_t LngApplication,
            const std::string& strUser, const std::string& jmtVerarbeitungsdatum = "") override;
  void ShowDialog() override;

  Session& session();

 private:
  std::unique_ptr<FormsToolkit> forms_;
  std::unique_ptr<Clock> clock_;
  std::unique_ptr<ProgressDisplay> progress_;
  std::unique_ptr<Nummernkreise> component_;
};

}  // namespace vexnumkr
