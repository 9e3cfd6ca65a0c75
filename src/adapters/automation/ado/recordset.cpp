#include "adapters/automation/ado/recordset.h"

#include "adapters/automation/ado/connection.h"

namespace vexnumkr::automation {

std::int32_t AdoRecordset::CursorLocation() const {
  return toLong(object_.call("CursorLocation").get());
}

void AdoRecordset::CursorLocation(std::int32_t location) {
  object_.put("CursorLocation", Variant(location));
}

void AdoRecordset::Open(const std::string& source, Connection& connection, std::int32_t cursorType,
                        std::int32_t lockType, std::int32_t options) {
  AdoConnection& ado = adoConnection(connection);
  ado.check(source);
  const Variant text(source);
  const Variant active(ado.object());
  const Variant cursor(cursorType);
  const Variant lock(lockType);
  const Variant option(options);
  object_.call("Open", {&text, &active, &cursor, &lock, &option});
  connection_ = &ado;
}

bool AdoRecordset::EndOfFile() const { return !hasRows_ || toBoolean(object_.call("EOF").get()); }

void AdoRecordset::MoveFirst() { object_.call("MoveFirst"); }
void AdoRecordset::MoveNext() { object_.call("MoveNext"); }

LateBound AdoRecordset::field(std::string_view name) const {
  const Variant wanted(name);
  const Variant found = object_.call("Fields", {&wanted});
  return LateBound(toObject(found.get()));
}

Value AdoRecordset::Fields(std::string_view name) const {
  return toStoredValue(field(name).call("Value").get());
}

void AdoRecordset::Fields(std::string_view name, const Value& value) {
  field(name).put("Value", Variant(value));
}

void AdoRecordset::Update() {
  if (connection_ != nullptr) connection_->beginToChange();
  object_.call("Update");
}
void AdoRecordset::Close() { object_.call("Close"); }

}  // namespace vexnumkr::automation
