// The rules of the range table once more, as plainly as they can be put: rows of printed cells and
// loops over them. Random scenarios are held against it; it shares nothing with the component.
#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace vexnumkr::scenario {

/// The cells of a row as transcripts print them.
using Cells = std::vector<std::string>;

/// Where the cells of a row of the range table stand.
enum RangeCell : std::size_t {
  Benutzer,
  Buchungskreis,
  Gruppe,
  NSchl,
  NBezeichnung,
  StartWert,
  AktuellerWert,
  EndWert,
  Aktiviert,
  SortierIndex,
  IstNSchlVon,
  Maske
};

/// The rows of the database's tables, with all their columns, and who reads them.
struct PlainDatabase {
  std::vector<Cells> ranges;
  std::vector<Cells> circles;
  std::vector<Cells> assignments;
  std::vector<Cells> specials;  // ordered by their number keys
  std::vector<std::string> users;
  std::string origin;
};

/// The items of the grid as they were when one of them was ticked: cell 0 describes the item, cells
/// 1 to 11 are its columns.
struct PlainTick {
  const std::vector<Cells>& items;
  std::size_t item;
  std::string user;
  std::string filter;
};

/// A range table computed by the rules. Every row and user it is given must be complete.
class PlainTable {
 public:
  PlainTable(std::vector<Cells> rows, std::vector<std::string> users)
      : rows_(std::move(rows)), users_(std::move(users)) {}
  /// The table of a dialog just shown.
  static PlainTable loaded(const PlainDatabase& database);

  /// What a tick on an item makes of the table.
  void tick(const PlainTick& tick);

  const std::vector<Cells>& rows() const { return rows_; }

 private:
  static constexpr std::size_t none = static_cast<std::size_t>(-1);

  std::size_t find(const std::string& user, const std::string& circle,
                   const std::string& key) const;
  bool hasKey(const std::string& key) const;
  void loadStored(const PlainDatabase& database);
  void spread(const PlainDatabase& database);
  void deriveUserRows(const PlainDatabase& database);
  void refreshSpecials(const PlainDatabase& database);
  void addSpecial(const PlainDatabase& database, const Cells& special);
  void checkActivity();
  bool checkActivityOf(const std::string& user);
  bool activateStandard(const std::string& user, const std::string& key);
  void setActive(const std::string& user, const Cells& item, bool active);
  void addForUsers(const Cells& item);
  void deleteForUsers(const Cells& item);
  void choose(const PlainTick& tick);

  std::vector<Cells> rows_;
  std::vector<std::string> users_;  // "Alle Benutzer" first
};

}  // namespace vexnumkr::scenario
