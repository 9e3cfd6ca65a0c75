// A company read from a file, with the place of each row for messages.
#pragma once

#include <array>
#include <string>
#include <vector>

#include <vexnumkr/number_transfer.h>

namespace vexnumkr::cli {

struct WantedCompany {
  numbers::Company company;
  /// By numbers::ChangedTable, in the order of the company's rows: "ranges[3]".
  std::array<std::vector<std::string>, 4> places;

  std::vector<std::string>& placesIn(numbers::ChangedTable table) {
    return places[static_cast<std::size_t>(table)];
  }
  const std::string& placeOf(numbers::ChangedTable table, std::size_t row) const {
    return places[static_cast<std::size_t>(table)].at(row);
  }
};

/// A text as it is read back from the database: columns may be filled with blanks.
inline std::string withoutTrailingBlanks(std::string text) {
  text.erase(text.find_last_not_of(' ') + 1);
  return text;
}

/// Error: UsageError for rows that stand in it twice, all of them; they could be stored once only.
void requireEachOnce(const WantedCompany& wanted);

/// Error: UsageError for what the database could not hold, all of it.
void requireNoFaults(const WantedCompany& wanted, const std::vector<numbers::ImportFault>& faults);

}  // namespace vexnumkr::cli
