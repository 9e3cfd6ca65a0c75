#include "automation/standins/recordset_object.h"

#include <vexnumkr/adapters.h>

#include "automation/standins/fields_object.h"

namespace vexnumkr::standins {

using automation::ComPtr;
using automation::Variant;

RecordsetObject::RecordsetObject()
    : DispatchObject("ADODB.Recordset"), rows_(createQtSqlConnection()->createRecordset()) {
  addProperties();
  addMethods();
}

ComPtr<RecordsetObject> RecordsetObject::make(std::unique_ptr<Recordset> rows,
                                              ConnectionObject& connection) {
  ComPtr<RecordsetObject> result = adopt(new RecordsetObject);
  result->connection_ = &connection;
  result->rows_ = std::move(rows);
  return result;
}

void RecordsetObject::addProperties() {
  property(
      L"CursorLocation", [this](Call& call) { call.answer(Variant(rows_->CursorLocation())); },
      [this](Call& call) { rows_->CursorLocation(call.number(0)); });
  property(L"EOF", [this](Call& call) { call.answer(Variant(rows_->EndOfFile())); }, {});
  // With an argument it is a field of the collection, the collection's default member.
  property(L"Fields",
           [this](Call& call) {
             if (call.count() == 0) return call.answer(FieldsObject::make(*this).Get());
             call.answer(FieldObject::make(*this, call.text(0)).Get());
           },
           {});
}

void RecordsetObject::addMethods() {
  method(L"Open", [this](Call& call) { open(call); });
  method(L"MoveFirst", [this](Call&) { rows_->MoveFirst(); });
  method(L"MoveNext", [this](Call&) { rows_->MoveNext(); });
  method(L"Update", [this](Call&) { rows_->Update(); });
  method(L"Close", [this](Call&) { rows_->Close(); });
}

void RecordsetObject::open(const Call& call) {
  const auto numberOr = [&](std::size_t index, std::int32_t otherwise) {
    return call.isGiven(index) ? call.number(index) : otherwise;
  };
  const ComPtr<ConnectionObject> connection = standIn<ConnectionObject>(call.object(1).Get());
  if (connection == nullptr) throw Refusal{DISP_E_TYPEMISMATCH};
  rows_->Open(call.text(0), connection->database(), numberOr(2, ado::openForwardOnly),
              numberOr(3, ado::lockReadOnly), numberOr(4, ado::unspecified));
  connection_ = connection;
}

}  // namespace vexnumkr::standins
