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
///
/// It may go at any time: what is running of it ends first (Nummernkreise::abandon), and its parts
/// live until that has returned. On another thread than the dialogs' Init and ShowDialog do
/// nothing, and the parts go on the dialogs' thread as soon as that handles its events.
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
  struct Parts;

  std::shared_ptr<Parts> parts_;
};

}  // namespace vexnumkr
