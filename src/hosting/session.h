// The session of one component object: what the host handed over, and the working objects of an
// open dialog.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include <vexnumkr/database.h>
#include <vexnumkr/host_components.h>

#include "data/booking_circles.h"
#include "data/range_data.h"
#include "data/sql/guarded_connection.h"
#include "data/statement_source.h"
#include "hosting/borrowed_host.h"
#include "hosting/boxes.h"
#include "hosting/busy_display.h"
#include "hosting/failure_log.h"
#include "hosting/lock_notice.h"
#include "platform/progress.h"
#include "platform/services.h"

namespace vexnumkr {

/// Getters and setters carry the name of their field; what is not there raises error 91 when it is
/// used. Touched by one handler at a time, on the host's thread.
class Session {
 public:
  explicit Session(const Services& services);
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  FormsToolkit& forms() const { return services_.forms; }
  HostComponents& host() { return host_; }
  const Clock& clock() const { return services_.clock; }
  /// Of the work that is going on.
  Progress& progress() { return progress_; }
  /// Tells the user while statements wait for locks.
  LockNotice& lockNotice() { return lockNotice_; }
  /// The boxes in which failures are shown and questions asked.
  Boxes& boxes() { return boxes_; }
  /// What has failed since the dialog opened; shows it.
  FailureLog& failures() { return failures_; }
  Reporter& reporter() { return failures_; }

  /// The component goes while something of it is at work: the open transaction is taken back, and
  /// from now on the host is asked for nothing and its objects are used no more, but for releasing
  /// them.
  void abandon() noexcept;
  bool isAbandoned() const noexcept { return host_.isGivenBack(); }

  // Handed over by the host; kept while the component lives.

  /// The host's connection for the component's own statements, and none but these.
  Connection& Conn() const;
  /// The connection as the host handed it over, for the host's own components; null before Init.
  const std::shared_ptr<Connection>& sharedConn() const { return Conn_; }
  void Conn(std::shared_ptr<Connection> connection);

  std::int32_t LngApplication() const { return boxes_.application(); }
  void LngApplication(std::int32_t code);

  /// The origin code of the application: "ORB" for 1, "ORC" for 2, else empty.
  std::string Herkunft() const { return source_.origin().Herkunft(); }

  const std::string& strUser() const { return strUser_; }
  void strUser(const std::string& user) { strUser_ = user; }

  /// "yyyymmdd", or whatever the host handed over instead.
  const std::string& strVerarbeitungsdatum() const { return strVerarbeitungsdatum_; }
  void strVerarbeitungsdatum(const std::string& date) { strVerarbeitungsdatum_ = date; }

  Users& colUser();
  void createColUser() { colUser_.emplace(); }
  void releaseColUser() { colUser_.reset(); }

  // The transaction in which the dialog changes the database, on the host's connection.

  /// Refuses tables that know no transactions, so that none begins over them. Errors: the
  /// connection's.
  void beginTransaction();
  void commitTransaction();
  /// It counts as ended also where that fails.
  void rollBackTransaction();
  /// Rolls back, whatever comes of that, and begins anew. Where that was done and nothing can
  /// begin, since the server is away, there is nothing left to roll back either. Errors: as for
  /// beginning.
  void restartTransaction();
  /// Begins it where none runs, since loading or an earlier save has failed: nothing is ever
  /// changed outside of it. Errors: as for beginning.
  void requireTransaction();

  // The working objects of an open dialog: there from start-up to tear-down.

  /// The command and the working connection.
  StatementSource& source() { return source_; }
  vexnumkr::XArray& XArray() { return XArray_; }
  /// The booking circles of the origin.
  BookingCircleList& Buchungskreise() { return Buchungskreise_; }
  /// The two of them with the users and what is known of the stored ranges.
  RangeData data() { return {XArray_, Buchungskreise_, colUser_ ? *colUser_ : noUsers_, known_}; }

  BookingCircleDialog& dlgBuchungskreise() const;
  void dlgBuchungskreise(std::unique_ptr<BookingCircleDialog> dialog);

  /// Whether there is anything to be saved.
  bool blnChanged() const { return blnChanged_; }
  void blnChanged(bool changed) { blnChanged_ = changed; }

 private:
  Services services_;
  BorrowedHost host_;
  BusyDisplay display_;
  Progress progress_;
  LockNotice lockNotice_{progress_};
  Boxes boxes_;
  FailureLog failures_{boxes_};
  std::shared_ptr<Connection> Conn_;
  std::unique_ptr<GuardedConnection> guardedConn_;
  std::string strUser_;
  std::string strVerarbeitungsdatum_;
  std::optional<Users> colUser_;
  Users noUsers_;
  StatementSource source_;
  vexnumkr::XArray XArray_;
  BookingCircleList Buchungskreise_;
  KnownRanges known_;
  std::unique_ptr<BookingCircleDialog> dlgBuchungskreise_;
  bool blnChanged_ = false;
  bool inTransaction_ = false;
  bool isRolledBack_ = false;  // And no other has begun since.
};

}  // namespace vexnumkr
