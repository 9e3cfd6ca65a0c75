// The recordset of the Qt SQL adapter.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include <vexnumkr/database.h>

#include "adapters/qtsql/rows/row_set.h"
#include "adapters/qtsql/session/record_keys.h"

namespace vexnumkr::qtsql {

class RowBlocks;
class SqlSession;

/// All rows are kept in memory, so it can be read after its connection was closed; writing then is
/// error 3704, as is everything after its own Close. With ado::useServer, opened forward only for
/// reading, some of them are kept at a time, on an engine with cursors while a transaction runs.
///
/// Values set are seen at once and stay with their row, also while another row is the current one,
/// until an Update of that row succeeds.
class SqlRecordset final : public Recordset {
 public:
  SqlRecordset();
  ~SqlRecordset() override;
  SqlRecordset(const SqlRecordset&) = delete;
  SqlRecordset& operator=(const SqlRecordset&) = delete;
  SqlRecordset(SqlRecordset&&) = delete;
  SqlRecordset& operator=(SqlRecordset&& other) noexcept;
  /// Open on the first of `rows`, for reading.
  explicit SqlRecordset(RowSet rows);

  std::int32_t CursorLocation() const override { return cursorLocation_; }
  void CursorLocation(std::int32_t location) override;
  void Open(const std::string& source, Connection& connection, std::int32_t cursorType,
            std::int32_t lockType, std::int32_t options) override;
  bool EndOfFile() const override;
  void MoveFirst() override;
  void MoveNext() override;
  Value Fields(std::string_view name) const override;
  void Fields(std::string_view name, const Value& value) override;
  void Update() override;
  void Close() override;

 private:
  void requireOpen() const;
  void requireRow() const;
  void requireWritable() const;
  std::size_t column(std::string_view name) const;
  std::vector<std::size_t> changedColumns() const;
  void readOn();

  std::int32_t cursorLocation_ = ado::useServer;
  bool isOpen_ = false;
  bool isWritable_ = false;
  bool isBehindFirst_ = false;         // The first rows are no longer kept.
  std::unique_ptr<RowBlocks> blocks_;  // Where not all are.
  RowSet rows_;
  std::size_t current_ = 0;
  std::optional<RecordKeys> keys_;
  std::weak_ptr<SqlSession> session_;
  std::set<std::pair<std::size_t, std::size_t>> changed_;  // Rows and columns not written yet.
};

}  // namespace vexnumkr::qtsql
