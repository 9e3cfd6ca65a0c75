#include "hosting/session.h"

#include <utility>

#include "data/sql/statements.h"

namespace vexnumkr {
namespace {

template <class Object>
Object& required(Object* object) {
  if (object == nullptr) throw Error::objectNotSet();
  return *object;
}

}  // namespace

Session::Session(const Services& services)
    : services_(services),
      host_(services.host),
      display_(services.forms, services.progress),
      progress_(&display_),
      boxes_(services.forms, host_, progress_) {
  source_.access(services.access);
}

void Session::abandon() noexcept {
  host_.giveBack();
  if (guardedConn_ != nullptr) guardedConn_->shut();
}

Connection& Session::Conn() const { return required(guardedConn_.get()); }

void Session::Conn(std::shared_ptr<Connection> connection) {
  Conn_ = std::move(connection);
  guardedConn_ = guardedConnection(Conn_);
  inTransaction_ = false;
}

// A server that cannot answer just now has answered when the dialog opened; one that is away is not
// asked twice.
void Session::beginTransaction() {
  inTransaction_ = false;
  try {
    Conn().RequireTransactions(statement::writtenTables());
  } catch (const Error& error) {
    if (error.number() == error_number::notAvailable ||
        error.number() == error_number::invalidConnection)
      throw;
  }
  Conn().BeginTrans();
  inTransaction_ = true;
  isRolledBack_ = false;
}

void Session::commitTransaction() {
  Conn().CommitTrans();
  inTransaction_ = false;
}

void Session::rollBackTransaction() {
  inTransaction_ = false;
  if (std::exchange(isRolledBack_, false)) return;
  Conn().RollbackTrans();
}

void Session::restartTransaction() {
  bool isRolledBack = false;
  ignoringFailures([&] {
    rollBackTransaction();
    isRolledBack = true;
  });
  isRolledBack_ = isRolledBack;
  beginTransaction();
}

void Session::requireTransaction() {
  if (!inTransaction_) beginTransaction();
}

void Session::LngApplication(std::int32_t code) {
  boxes_.application(code);
  source_.origin(Origin(code));
}

Users& Session::colUser() { return required(colUser_ ? &*colUser_ : nullptr); }

BookingCircleDialog& Session::dlgBuchungskreise() const {
  return required(isAbandoned() ? nullptr : dlgBuchungskreise_.get());
}

void Session::dlgBuchungskreise(std::unique_ptr<BookingCircleDialog> dialog) {
  dlgBuchungskreise_ = std::move(dialog);
}

}  // namespace vexnumkr
