#include "data/stored/stored_range.h"

#include "data/stored/nz_value.h"

namespace vexnumkr {

RangeRow storedRange(const Recordset& record, XArray& table) {
  using basAllgemein::NzValue;
  const Value nothing("");
  const auto text = [&table](const Value& value) { return table.text(value.toText()); };
  RangeRow range;
  range.Benutzer = table.text(alleBenutzer);
  range.Buchungskreis = record.Fields("Buchungskreis").toLong();
  range.NSchl = text(record.Fields("NSchl"));
  range.NBezeichnung = text(record.Fields("NBezeichnung"));
  range.StartWert = record.Fields("StartWert").toLong();
  range.AktuellerWert = record.Fields("AktuellerWert").toLong();
  range.EndWert = record.Fields("EndWert").toLong();
  range.Aktiviert = NzValue(record.Fields("Aktiviert"), false).toBoolean();
  range.SortierIndex = NzValue(record.Fields("SortierIndex"), 0).toLong();
  range.IstNSchlVon = text(NzValue(record.Fields("IstNSchlVon"), nothing));
  range.Maske = text(NzValue(record.Fields("Maske"), nothing));
  return range;
}

}  // namespace vexnumkr
