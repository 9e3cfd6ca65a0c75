// The implementation of the public class.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include <vexnumkr/VXNummernkreise.h>

#include "hosting/session.h"

namespace vexnumkr {

/// The main dialog as the public class knows it.
class MainDialog {
 public:
  virtual ~MainDialog() = default;
  /// Switches the fonts of the dialog and its controls; before Show.
  virtual void RefreshFont(const std::string& fontName) = 0;
  /// Shows the dialog modally and returns when it is closed.
  virtual void Show() = 0;

 protected:
  MainDialog() = default;
  MainDialog(const MainDialog&) = default;
  MainDialog& operator=(const MainDialog&) = default;
};

/// The font of application 1's dialogs.
inline constexpr const char* hostFont = "MS Sans Serif";

using MainDialogFactory = std::function<std::unique_ptr<MainDialog>(Session&)>;

/// Holds the session and delegates. A fresh dialog is made for every ShowDialog.
///
/// Events of the host may run while the dialog is open or in the middle of long work; Init and
/// ShowDialog called by them do nothing, and Init returns False.
class Nummernkreise final : public VXNummernkreise {
 public:
  /// `createDialog` is called for every ShowDialog.
  Nummernkreise(const Services& services, MainDialogFactory createDialog);

  bool Init(std::shared_ptr<Connection> Conn, std::int32_t LngApplication,
            const std::string& strUser, const std::string& jmtVerarbeitungsdatum) override;
  void ShowDialog() override;

  /// The component goes. Where its dialog is open, or Init is running, that ends as soon as the
  /// handler returns from which this was called: the windows close now, without asking, the
  /// transaction is taken back, and nothing of the host is asked any more. REQUIRES: this object
  /// lives until the members that are running have returned.
  void abandon() noexcept;

  /// The session, for this project's own tests.
  Session& session() { return session_; }

 private:
  bool isBusy();
  void readUsers();

  FormsToolkit& forms_;
  Session session_;
  bool isOpen_ = false;
  bool isInitialising_ = false;
  MainDialogFactory createDialog_;
};

}  // namespace vexnumkr
