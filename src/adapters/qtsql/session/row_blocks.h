// The rows of a select, some of them at a time.
#pragma once

#include <memory>

#include "adapters/qtsql/opening/failure.h"
#include "adapters/qtsql/session/session.h"

namespace vexnumkr::qtsql {

/// A session has one at a time; until it ends with this object nothing else is sent.
class RowBlocks {
 public:
  /// Runs a select that has passed.
  RowBlocks(const std::shared_ptr<SqlSession>& session, const Statement& statement)
      : session_(session), rows_(session->readFirst(statement)) {}
  ~RowBlocks() {
    if (const auto session = session_.lock()) session->endBlocks();
  }
  RowBlocks(const RowBlocks&) = delete;
  RowBlocks& operator=(const RowBlocks&) = delete;

  /// Those that were read first; may be taken.
  RowSet& first() { return rows_; }
  /// The ones behind those; none behind the last.
  RowSet next() {
    const auto session = session_.lock();
    if (!session) throw connectionClosed();
    session->requireFree();
    return session->readFurther();
  }

 private:
  std::weak_ptr<SqlSession> session_;
  RowSet rows_;
};

}  // namespace vexnumkr::qtsql
