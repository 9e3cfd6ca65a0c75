// The component's one public class.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include <vexnumkr/database.h>
#include <vexnumkr/export.h>

namespace vexnumkr {

/// Lets the host's users administer their document number ranges in one modal dialog.
///
/// Calling order: Init first, then ShowDialog any number of times. Made by the factories in
/// component.h. Both members are called on the host's user-interface thread, which ShowDialog
/// blocks. Neither raises an error: failures are reported to the user in a box. Whether the user
/// saved or cancelled is visible in the database alone.
///
/// On any other thread, and when the QApplication is gone, Init returns False and ShowDialog does
/// nothing, without a word: there is nobody to show a box to. Called by the host while one of them
/// runs (in a timer, an event, a call that the component makes), they do the same.
class VEXNUMKR_API VXNummernkreise {
 public:
  /// Releases the user list; the connection stays open.
  ///
  /// The host may release the component at any time, also in the middle of a call that the
  /// component makes to it and while the dialog is open. The dialog, and what stands over it, then
  /// closes at once without asking, and the transaction is rolled back, but for a statement or a
  /// commit of the host's own database layer that is running: that ends first. From then on the
  /// host is called no more. Init or ShowDialog, which still runs, returns as soon as the host has;
  /// until then the connection and the host's components that are in use are kept. On another
  /// thread than the dialogs' all of this happens when that next handles its events, so that the
  /// host must live until then.
  virtual ~VXNummernkreise() = default;

  /// Hands over the session.
  ///
  /// `Conn`                  the host's open connection; shared, never opened or closed here.
  /// `LngApplication`        1 for the origin "ORB", 2 for "ORC"; other codes have no origin.
  /// `strUser`               the user working in the host.
  /// `jmtVerarbeitungsdatum` processing date "yyyymmdd", kept as given; empty means today.
  ///
  /// Returns False after a failure, which the user has been shown by then; what was stored until
  /// then stays stored. A user table without rows is no failure. May be called again at any time
  /// while no dialog is open.
  virtual bool Init(std::shared_ptr<Connection> Conn, std::int32_t LngApplication,
                    const std::string& strUser, const std::string& jmtVerarbeitungsdatum = "") = 0;

  /// Shows the dialog and returns when the user has closed it. Without a successful Init it opens
  /// with an empty session and reports the failure of its first database access.
  virtual void ShowDialog() = 0;

 protected:
  VXNummernkreise() = default;
  VXNummernkreise(const VXNummernkreise&) = default;
  VXNummernkreise& operator=(const VXNummernkreise&) = default;
};

}  // namespace vexnumkr
