#include "automation/standins/command_object.h"

#include <vexnumkr/adapters.h>
#include <vexnumkr/error.h>

#include "automation/standins/recordset_object.h"

namespace vexnumkr::standins {

using automation::Variant;

CommandObject::CommandObject()
    : DispatchObject("ADODB.Command"), command_(createQtSqlConnection()->createCommand()) {
  referenceProperty(L"ActiveConnection", [this](Call& call) { connect(call); });
  property(
      L"CommandType", [this](Call& call) { call.answer(Variant(type_)); },
      [this](Call& call) { command_->CommandType(type_ = call.number(0)); });
  property(
      L"CommandTimeout", [this](Call& call) { call.answer(Variant(timeout_)); },
      [this](Call& call) { command_->CommandTimeout(timeout_ = call.number(0)); });
  property(
      L"CommandText", [this](Call& call) { call.answer(Variant(text_)); },
      [this](Call& call) { command_->CommandText(text_ = call.text(0)); });
  method(L"Execute", [this](Call& call) { execute(call); });
}

void CommandObject::connect(const Call& call) {
  connection_ = standIn<ConnectionObject>(call.object(0).Get());
  if (connection_ == nullptr) throw Refusal{DISP_E_TYPEMISMATCH};
  command_->ActiveConnection(connection_->database());
}

void CommandObject::execute(const Call& call) {
  if (connection_ == nullptr)
    throw Error(3709, "ADODB.Command",
                "The connection cannot be used to perform this operation. It is either closed or "
                "invalid in this context.");
  std::int32_t recordsAffected = 0;
  std::unique_ptr<Recordset> rows = command_->Execute(recordsAffected);
  call.deliver(0, Variant(recordsAffected));
  call.answer(RecordsetObject::make(std::move(rows), *connection_.Get()).Get());
}

}  // namespace vexnumkr::standins
