// An ADO recordset as the component sees it.
#pragma once

#include <string>
#include <string_view>

#include <vexnumkr/database.h>

#include "adapters/automation/com/late_bound.h"

namespace vexnumkr::automation {

class AdoConnection;

/// Forwards to the object's members.
class AdoRecordset final : public Recordset {
 public:
  /// With `hasRows` false it is the result of a statement that is no select: without rows, at its
  /// end, whatever the object (which may be missing) says.
  explicit AdoRecordset(LateBound object, bool hasRows = true)
      : object_(std::move(object)), hasRows_(hasRows) {}

  std::int32_t CursorLocation() const override;
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
  LateBound field(std::string_view name) const;

  mutable LateBound object_;
  bool hasRows_;
  AdoConnection* connection_ = nullptr;  // Borrowed by Open.
};

}  // namespace vexnumkr::automation
