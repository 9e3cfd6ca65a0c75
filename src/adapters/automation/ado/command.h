// An ADO command as the component sees it.
#pragma once

#include <memory>
#include <string>

#include "adapters/automation/ado/connection.h"

namespace vexnumkr::automation {

/// Forwards to the object's members.
class AdoCommand final : public Command {
 public:
  explicit AdoCommand(LateBound object) : object_(std::move(object)) {}

  void ActiveConnection(Connection& connection) override;
  void CommandType(std::int32_t type) override;
  void CommandTimeout(std::int32_t seconds) override;
  void CommandText(const std::string& text) override;
  std::unique_ptr<Recordset> Execute(std::int32_t& recordsAffected) override;

 private:
  LateBound object_;
  AdoConnection* connection_ = nullptr;  // Borrowed by ActiveConnection, as the interface says.
  std::string text_;
};

}  // namespace vexnumkr::automation
