// The stand-ins for ADO's collection of fields and for a field.
#pragma once

#include <string>

#include "automation/standins/recordset_object.h"

namespace vexnumkr::standins {

/// The fields of a recordset, by name.
class FieldsObject final : public DispatchObject {
 public:
  static automation::ComPtr<FieldsObject> make(RecordsetObject& recordset);

 private:
  explicit FieldsObject(RecordsetObject& recordset);

  automation::ComPtr<RecordsetObject> recordset_;
};

/// A field of whatever row is the current one. Its value has the type that the database gives it,
/// or the one that the environment variable VEXNUMKR_COLUMN_TYPES wants for its column, as real
/// providers differ in that: "Aktiviert=11;StartWert=14" are VT_BOOL and VT_DECIMAL.
class FieldObject final : public DispatchObject {
 public:
  static automation::ComPtr<FieldObject> make(RecordsetObject& recordset, std::string name);

 private:
  FieldObject(RecordsetObject& recordset, std::string name);

  automation::Variant read() const;

  automation::ComPtr<RecordsetObject> recordset_;
  std::string column_;
};

}  // namespace vexnumkr::standins
