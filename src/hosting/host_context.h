// The session of one component object: what the host handed over, the working objects of an open
// dialog, and what the dialog currently shows.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <vexnumkr/database.h>
#include <vexnumkr/host_components.h>

#include "data/sql/guarded_connection.h"
#include "data/table/xarray.h"
#include "hosting/progress.h"
#include "platform/services.h"
#include "platform/tree_grid.h"

namespace vexnumkr {

/// The name of the common view and of the common rows.
inline constexpr const char* alleBenutzer = "Alle Benutzer";

/// The pictures that show a range's state in the grid.
struct StatePictures {
  PictureHandle Checked = noPicture;
  PictureHandle Unchecked = noPicture;
  PictureHandle ValueFalse = noPicture;
  PictureHandle ValueTrue = noPicture;
  PictureHandle NotFound = noPicture;
};

/// Handed to every procedure. Getters and setters carry the name of their field; the getter of an
/// object that is not there raises error 91. Touched by one handler at a time, on the host's
/// thread.
class HostContext {
 public:
  explicit HostContext(const Services& services)
      : services_(services), progress_(services.forms, services.progress) {}
  HostContext(const HostContext&) = delete;
  HostContext& operator=(const HostContext&) = delete;

  FormsToolkit& forms() const { return services_.forms; }
  HostComponents& host() const { return services_.host; }
  const Clock& clock() const { return services_.clock; }
  /// Of the work that is going on.
  Progress& progress() { return progress_; }

  // Handed over by the host; kept while the component lives.

  /// The host's connection for the component's own statements, and none but these.
  Connection& Conn() const { return required(guardedConn_.get()); }
  /// The connection as the host handed it over, for the host's own components; null before Init.
  const std::shared_ptr<Connection>& sharedConn() const { return Conn_; }
  void Conn(std::shared_ptr<Connection> connection) {
    Conn_ = std::move(connection);
    guardedConn_ = guardedConnection(Conn_);
  }

  std::int32_t LngApplication() const { return LngApplication_; }
  void LngApplication(std::int32_t code) { LngApplication_ = code; }

  /// The origin code of the application: "ORB" for 1, "ORC" for 2, else empty.
  std::string Herkunft() const;
  /// The origin code of the other application; empty where there is no own one.
  std::string andereHerkunft() const;

  const std::string& strUser() const { return strUser_; }
  void strUser(const std::string& user) { strUser_ = user; }

  /// "yyyymmdd", or whatever the host handed over instead.
  const std::string& strVerarbeitungsdatum() const { return strVerarbeitungsdatum_; }
  void strVerarbeitungsdatum(const std::string& date) { strVerarbeitungsdatum_ = date; }

  /// "Alle Benutzer" first, then the host's users.
  std::vector<std::string>& colUser() { return required(colUser_ ? &*colUser_ : nullptr); }
  void createColUser() { colUser_.emplace(); }
  void releaseColUser() { colUser_.reset(); }

  // The working objects of an open dialog.

  Connection& ConnWork() const { return required(ConnWork_.get()); }
  void ConnWork(std::unique_ptr<Connection> connection) { ConnWork_ = std::move(connection); }

  Command& cmdSQL() const { return required(cmdSQL_.get()); }
  void cmdSQL(std::unique_ptr<Command> command) { cmdSQL_ = std::move(command); }

  vexnumkr::XArray& XArray() const { return required(XArray_.get()); }
  void XArray(std::unique_ptr<vexnumkr::XArray> table) { XArray_ = std::move(table); }

  /// The booking circles of the origin: number and description.
  vexnumkr::XArray& Buchungskreise() const { return required(Buchungskreise_.get()); }
  void Buchungskreise(std::unique_ptr<vexnumkr::XArray> list) { Buchungskreise_ = std::move(list); }

  BookingCircleDialog& dlgBuchungskreise() const { return required(dlgBuchungskreise_.get()); }
  void dlgBuchungskreise(std::unique_ptr<BookingCircleDialog> dialog) {
    dlgBuchungskreise_ = std::move(dialog);
  }

  // The texts that the dialog's two filters show, and whether anything was changed.

  const std::string& strFilterUser() const { return strFilterUser_; }
  void strFilterUser(const std::string& user) { strFilterUser_ = user; }

  const std::string& strFilterBuchungskreis() const { return strFilterBuchungskreis_; }
  void strFilterBuchungskreis(const std::string& text) { strFilterBuchungskreis_ = text; }

  bool blnChanged() const { return blnChanged_; }
  void blnChanged(bool changed) { blnChanged_ = changed; }

  /// The dialog's grid, borrowed while the dialog is loaded.
  TreeGrid& sftNummernkreise() const { return required(sftNummernkreise_); }
  void sftNummernkreise(TreeGrid* grid) { sftNummernkreise_ = grid; }

  const StatePictures& pictures() const { return pictures_; }
  void pictures(const StatePictures& pictures) { pictures_ = pictures; }

 private:
  template <class Object>
  static Object& required(Object* object) {
    if (object == nullptr) throw Error::objectNotSet();
    return *object;
  }

  Services services_;
  Progress progress_;
  std::shared_ptr<Connection> Conn_;
  std::unique_ptr<Connection> guardedConn_;
  std::int32_t LngApplication_ = 0;
  std::string strUser_;
  std::string strVerarbeitungsdatum_;
  std::optional<std::vector<std::string>> colUser_;
  std::unique_ptr<Connection> ConnWork_;
  std::unique_ptr<Command> cmdSQL_;
  std::unique_ptr<vexnumkr::XArray> XArray_;
  std::unique_ptr<vexnumkr::XArray> Buchungskreise_;
  std::unique_ptr<BookingCircleDialog> dlgBuchungskreise_;
  std::string strFilterUser_;
  std::string strFilterBuchungskreis_;
  bool blnChanged_ = false;
  TreeGrid* sftNummernkreise_ = nullptr;
  StatePictures pictures_;
};

}  // namespace vexnumkr
