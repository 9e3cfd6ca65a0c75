#include "adapters/qtsql/session/recordset.h"

#include "adapters/qtsql/opening/failure.h"
#include "adapters/qtsql/rows/field_value.h"
#include "adapters/qtsql/session/connection.h"
#include "adapters/qtsql/session/keyed_select.h"
#include "adapters/qtsql/session/row_blocks.h"
#include "adapters/qtsql/session/session.h"

namespace vexnumkr::qtsql {

SqlRecordset::SqlRecordset() = default;
SqlRecordset::SqlRecordset(RowSet rows) : isOpen_(true), rows_(std::move(rows)) {}
SqlRecordset::~SqlRecordset() = default;
SqlRecordset& SqlRecordset::operator=(SqlRecordset&& other) noexcept = default;

void SqlRecordset::CursorLocation(std::int32_t location) {
  if (isOpen_) throw recordsetOpen();
  cursorLocation_ = location;
}

void SqlRecordset::Open(const std::string& source, Connection& connection, std::int32_t cursorType,
                        std::int32_t lockType, std::int32_t /*options*/) {
  if (isOpen_) throw recordsetOpen();
  const std::shared_ptr<SqlSession> session = SqlConnection::sessionOf(connection);
  const Statement statement = session->passSelect(source);
  isWritable_ = cursorType == ado::openKeyset && lockType == ado::lockOptimistic;
  if (isWritable_) {
    KeyedSelect found = selectWithKeys(*session, statement);
    rows_ = std::move(found.rows);
    keys_ = std::move(found.keys);
  } else if (cursorLocation_ == ado::useServer && cursorType == ado::openForwardOnly &&
             lockType == ado::lockReadOnly) {
    blocks_ = std::make_unique<RowBlocks>(session, statement);
    rows_ = std::move(blocks_->first());
  } else {
    rows_ = session->read(statement);
  }
  session_ = session;
  isOpen_ = true;
}

bool SqlRecordset::EndOfFile() const {
  requireOpen();
  return current_ >= rows_.rowCount();
}

void SqlRecordset::MoveFirst() {
  requireOpen();
  if (isBehindFirst_)
    throw failure(error_number::notAvailable, "Die ersten Datensätze sind nicht mehr da.");
  if (rows_.rowCount() == 0) throw Error::noCurrentRecord();
  current_ = 0;
}

void SqlRecordset::MoveNext() {
  requireRow();
  ++current_;
  if (blocks_ && current_ == rows_.rowCount()) readOn();
}

void SqlRecordset::readOn() {
  rows_ = blocks_->next();
  current_ = 0;
  isBehindFirst_ = true;
  if (rows_.rowCount() == 0) blocks_.reset();
}

Value SqlRecordset::Fields(std::string_view name) const {
  requireRow();
  return rows_.value(current_, column(name));
}

void SqlRecordset::Fields(std::string_view name, const Value& value) {
  requireWritable();
  const std::size_t changed = column(name);
  rows_.set(current_, changed, toField(value));
  // Noted also where the value is the same: what the user has set is to be written.
  changed_.emplace(current_, changed);
}

void SqlRecordset::Update() {
  requireWritable();
  if (!keys_ || !keys_->identify(rows_, current_))
    throw failure(error_number::notAvailable,
                  "Der Datensatz hat keinen eindeutigen Schlüssel und kann nicht geändert werden.");
  const std::shared_ptr<SqlSession> session = session_.lock();
  if (!session) throw connectionClosed();
  session->requireFree();
  const std::vector<std::size_t> columns = changedColumns();
  if (columns.empty()) return;
  const RecordKeys::Change change = keys_->change(rows_, current_, columns);
  // A change to what it is already may count as none.
  if (session->change(change.text, change.values) == 0 &&
      session->count(change.check, change.checkValues) == 0)
    throw failure(failure_number::recordGone,
                  "Der Datensatz ist nicht mehr vorhanden und kann nicht geändert werden.");
  keys_->followChange(rows_, current_, columns);
  for (const std::size_t column : columns) changed_.erase({current_, column});
}

void SqlRecordset::Close() {
  requireOpen();
  // A closed recordset may be opened again, with where its rows are kept as it was set.
  const std::int32_t location = cursorLocation_;
  *this = SqlRecordset();
  cursorLocation_ = location;
}

void SqlRecordset::requireOpen() const {
  if (!isOpen_) throw recordsetClosed();
}

void SqlRecordset::requireRow() const {
  if (EndOfFile()) throw Error::noCurrentRecord();
}

void SqlRecordset::requireWritable() const {
  requireRow();
  if (!isWritable_)
    throw failure(error_number::notAvailable, "Die Datensatzgruppe wurde nur zum Lesen geöffnet.");
}

std::size_t SqlRecordset::column(std::string_view name) const {
  if (const auto found = rows_.column(name)) return *found;
  throw failure(failure_number::itemNotFound,
                "Das Feld \"" + std::string(name) + "\" gibt es in der Datensatzgruppe nicht.");
}

std::vector<std::size_t> SqlRecordset::changedColumns() const {
  std::vector<std::size_t> columns;
  for (auto it = changed_.lower_bound({current_, 0}); it != changed_.end() && it->first == current_;
       ++it)
    columns.push_back(it->second);
  return columns;
}

}  // namespace vexnumkr::qtsql
