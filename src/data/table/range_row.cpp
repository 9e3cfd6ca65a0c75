#include "data/table/range_row.h"

namespace vexnumkr {

std::array<Value, 12> RangeRow::columns() const {
  return {Benutzer.str(),
          Buchungskreis,
          Gruppe.str(),
          NSchl.str(),
          NBezeichnung.str(),
          StartWert.toValue(),
          AktuellerWert.toValue(),
          EndWert.toValue(),
          Aktiviert,
          SortierIndex,
          IstNSchlVon.str(),
          Maske.toValue()};
}

}  // namespace vexnumkr
