#include "automation/standins/fields_object.h"

#include <charconv>
#include <cstdint>
#include <optional>

#include "automation/standins/environment.h"
#include "platform/ascii_case.h"

namespace vexnumkr::standins {

using automation::ComPtr;
using automation::Variant;

namespace {

std::optional<VARTYPE> wantedType(const std::string& column) {
  const std::string wanted = ';' + inLowerCase(environment(L"VEXNUMKR_COLUMN_TYPES"));
  const std::string key = ';' + inLowerCase(column) + '=';
  const std::size_t place = wanted.find(key);
  if (place == std::string::npos) return std::nullopt;
  VARTYPE type = VT_EMPTY;
  std::from_chars(wanted.data() + place + key.size(), wanted.data() + wanted.size(), type);
  return type;
}

}  // namespace

ComPtr<FieldsObject> FieldsObject::make(RecordsetObject& recordset) {
  return adopt(new FieldsObject(recordset));
}

FieldsObject::FieldsObject(RecordsetObject& recordset)
    : DispatchObject("ADODB.Fields"), recordset_(&recordset) {
  defaultProperty(
      L"Item",
      [this](Call& call) { call.answer(FieldObject::make(*recordset_.Get(), call.text(0)).Get()); },
      {});
}

ComPtr<FieldObject> FieldObject::make(RecordsetObject& recordset, std::string name) {
  return adopt(new FieldObject(recordset, std::move(name)));
}

FieldObject::FieldObject(RecordsetObject& recordset, std::string name)
    : DispatchObject("ADODB.Field"), recordset_(&recordset), column_(std::move(name)) {
  defaultProperty(
      L"Value", [this](Call& call) { call.answer(read()); },
      [this](Call& call) { recordset_->rows().Fields(column_, call.value(0)); });
}

Variant FieldObject::read() const {
  Variant value(recordset_->rows().Fields(column_));
  const std::optional<VARTYPE> type = wantedType(column_);
  if (!type || V_VT(&value.get()) == VT_NULL) return value;
  const HRESULT code = VariantChangeType(&value.get(), &value.get(), 0, *type);
  if (FAILED(code)) throw Refusal{code};
  return value;
}

}  // namespace vexnumkr::standins
