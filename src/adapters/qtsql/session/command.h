// The command of the Qt SQL adapter.
#pragma once

#include <memory>
#include <string>

#include <vexnumkr/database.h>

namespace vexnumkr::qtsql {

struct SessionSlot;

/// Runs on whatever its connection has open at the time. Errors besides those of the interface:
/// 3709 without a connection of this adapter, or when that is gone; 3704 when it is closed; 3001
/// for another command type than text, and for a negative time-out.
class SqlCommand final : public Command {
 public:
  void ActiveConnection(Connection& connection) override;
  void CommandType(std::int32_t type) override;
  void CommandTimeout(std::int32_t seconds) override;
  void CommandText(const std::string& text) override { text_ = text; }
  std::unique_ptr<Recordset> Execute(std::int32_t& recordsAffected) override;

 private:
  std::weak_ptr<SessionSlot> connection_;
  std::string text_;
};

}  // namespace vexnumkr::qtsql
