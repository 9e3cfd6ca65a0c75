#include "adapters/automation/ado/command.h"

#include "adapters/automation/ado/execution.h"

namespace vexnumkr::automation {

void AdoCommand::ActiveConnection(Connection& connection) {
  AdoConnection& ado = adoConnection(connection);
  object_.putReference("ActiveConnection", Variant(ado.object()));
  connection_ = &ado;
}

void AdoCommand::CommandType(std::int32_t type) { object_.put("CommandType", Variant(type)); }

void AdoCommand::CommandTimeout(std::int32_t seconds) {
  object_.put("CommandTimeout", Variant(seconds));
}

void AdoCommand::CommandText(const std::string& text) {
  text_ = text;
  object_.put("CommandText", Variant(text));
}

std::unique_ptr<Recordset> AdoCommand::Execute(std::int32_t& recordsAffected) {
  // Without a connection the command fails by itself.
  const bool isSelect = connection_ != nullptr && connection_->check(text_).isSelect();
  return execute(object_, nullptr, isSelect, recordsAffected);
}

}  // namespace vexnumkr::automation
