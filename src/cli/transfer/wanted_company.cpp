#include "cli/transfer/wanted_company.h"

#include <map>

#include "cli/transfer/faults.h"

namespace vexnumkr::cli {
namespace {

using numbers::ChangedTable;

// The rows by what they are called, which names them in their table.
template <class Row, class NameOf>
void addRepeated(const WantedCompany& wanted, ChangedTable table, const std::vector<Row>& rows,
                 NameOf&& nameOf, Faults& faults) {
  std::map<std::string, std::size_t> known;
  for (std::size_t at = 0; at < rows.size(); ++at) {
    const auto [first, isNew] = known.emplace(nameOf(rows[at]), at);
    if (!isNew)
      faults.add(wanted.placeOf(table, at),
                 first->first + " steht schon in " + wanted.placeOf(table, first->second) + ".");
  }
}

}  // namespace

void requireEachOnce(const WantedCompany& wanted) {
  const numbers::Company& company = wanted.company;
  Faults faults;
  addRepeated(
      wanted, ChangedTable::circles, company.circles,
      [](const auto& row) { return "Buchungskreis " + std::to_string(row.number); }, faults);
  addRepeated(
      wanted, ChangedTable::ranges, company.ranges,
      [](const auto& row) {
        return "Nummernkreis " + row.key + ", Buchungskreis " + std::to_string(row.circle);
      },
      faults);
  addRepeated(
      wanted, ChangedTable::specialRanges, company.specialRanges,
      [](const auto& row) { return "Sonderkreis " + row.ownKey; }, faults);
  faults.raise();
}

void requireNoFaults(const WantedCompany& wanted, const std::vector<numbers::ImportFault>& found) {
  Faults faults;
  for (const numbers::ImportFault& fault : found)
    faults.add(wanted.placeOf(fault.table, fault.row), fault.text);
  faults.raise();
}

}  // namespace vexnumkr::cli
