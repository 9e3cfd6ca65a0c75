#include "adapters/automation/ado/execution.h"

#include "adapters/automation/ado/recordset.h"

namespace vexnumkr::automation {

std::unique_ptr<Recordset> execute(LateBound& object, const Variant* text, bool isSelect,
                                   std::int32_t& recordsAffected) {
  Variant count(std::int32_t{0});
  const Variant counted = Variant::reference(count.get());
  const Variant rows = text != nullptr ? object.call("Execute", {text, &counted})
                                       : object.call("Execute", {&counted});
  recordsAffected = toLong(count.get());
  return std::make_unique<AdoRecordset>(LateBound(toObject(rows.get())), isSelect);
}

}  // namespace vexnumkr::automation
