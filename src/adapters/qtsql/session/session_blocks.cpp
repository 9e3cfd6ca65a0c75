// Selects of so many rows that a session keeps but some of them at a time.
#include "adapters/qtsql/session/session.h"

namespace vexnumkr::qtsql {
namespace {

constexpr std::size_t rowsAtOnce = 10'000;

}  // namespace

// The drivers of an engine with cursors would keep all rows on this side. Cursors live in
// transactions; outside of one they do.
RowSet SqlSession::readFirst(const Statement& statement) {
  requireReady();
  onlyReads_ = true;
  const QString text = textOf(statement);
  if (engine_->declareCursor != nullptr) {
    if (!inTransaction_) return read(text);
    run(QString::fromLatin1(engine_->declareCursor) + text);
    runRest();
    hasCursor_ = true;
    return readFurther();
  }
  blocks_.emplace(database_.get());
  blocks_->setForwardOnly(true);
  if (!patiently([&] { return blocks_->exec(text); })) fail(*blocks_);
  return readFurther();
}

RowSet SqlSession::readFurther() {
  if (endedBy_) throw *endedBy_;
  if (hasCursor_) return run(QStringLiteral("FETCH FORWARD %1 FROM vexnumkr_rows").arg(rowsAtOnce));
  if (!blocks_) return RowSet();
  std::vector<std::pair<std::size_t, std::size_t>> substituted;
  RowSet rows(
      *blocks_, [&](std::size_t row, std::size_t column) { substituted.emplace_back(row, column); },
      rowsAtOnce);
  if (blocks_->lastError().isValid()) fail(*blocks_);
  if (!isWholeByItself())
    for (const auto& [row, column] : substituted) rows.markUnreadable(row, column);
  return rows;
}

// A cursor that failed is gone already.
void SqlSession::endBlocks() {
  blocks_.reset();
  if (hasCursor_ && inTransaction_ && !endedBy_ && database_.isOpen())
    succeeds("CLOSE vexnumkr_rows");
  hasCursor_ = false;
}

}  // namespace vexnumkr::qtsql
