// The stand-in for ADODB.Recordset.
#pragma once

#include <memory>
#include <string>

#include <vexnumkr/database.h>

#include "automation/standins/connection_object.h"
#include "automation/standins/dispatch_object.h"

namespace vexnumkr::standins {

/// The rows of a select; holds its connection as long as it lives.
class RecordsetObject final : public DispatchObject {
 public:
  /// A closed recordset on server-side cursors.
  RecordsetObject();

  /// The result of a statement of `connection`.
  static automation::ComPtr<RecordsetObject> make(std::unique_ptr<Recordset> rows,
                                                  ConnectionObject& connection);

  Recordset& rows() { return *rows_; }

 private:
  void addProperties();
  void addMethods();
  void open(const Call& call);

  automation::ComPtr<ConnectionObject> connection_;
  std::unique_ptr<Recordset> rows_;
};

}  // namespace vexnumkr::standins
