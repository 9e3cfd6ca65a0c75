// The range table in the tree grid: one group item per number key, below it one item per range.
//
// The grid is only a view. It is rebuilt from the range table for a booking-circle filter and a
// user, and what the user ticks is written into the range table at once. The item's picture is its
// state: check boxes in the common view (any number of booking circles may be active for a key),
// option buttons in a user's view (a user draws from exactly one range per key).
#pragma once

#include <cstdint>
#include <string>

#include "hosting/host_context.h"

namespace vexnumkr {

/// The grid's columns. Those from Buchungskreis on are hidden and hold the row's identity.
namespace grid_column {
inline constexpr std::int16_t Beschreibung = 1;
inline constexpr std::int16_t Start = 2;
inline constexpr std::int16_t Aktuell = 3;
inline constexpr std::int16_t Ende = 4;
inline constexpr std::int16_t Maske = 5;
inline constexpr std::int16_t Buchungskreis = 6;
inline constexpr std::int16_t NSchl = 7;
inline constexpr std::int16_t NBezeichnung = 8;
inline constexpr std::int16_t SortierIndex = 9;
inline constexpr std::int16_t Type = 10;
inline constexpr std::int16_t IstNSchlVon = 11;
}  // namespace grid_column

/// What the column Type says. A placeholder says "Group" too, so that whatever leaves group items
/// alone leaves it alone.
inline constexpr const char* groupType = "Group";
inline constexpr const char* rangeType = "Pos";

/// What an item is by its column Type. Error 9 for one outside the list.
inline bool isGroup(const TreeGrid& grid, std::int32_t index) {
  return grid.List(index, grid_column::Type) == groupType;
}
inline bool isRange(const TreeGrid& grid, std::int32_t index) {
  return grid.List(index, grid_column::Type) == rangeType;
}

namespace basAllgemein {

/// Rebuilds the grid for a filter ("Alle Buchungskreise", "Aktive Buchungskreise" or a description)
/// and a user ("Alle Benutzer" or a name). The same position is current afterwards. REQUIRES: each
/// key's rows stand together in the range table, the standard range first. A failure is reported
/// and leaves the items added until then.
void SyncDataWithControl(HostContext& context, const std::string& filter, const std::string& user);

/// Adds a group item. Its look depends on the application. Failures are reported.
void AddGroup(HostContext& context, const std::string& NSchl, const std::string& NBezeichnung,
              const std::string& NSchl2, const std::string& IstNSchlVon);

/// A range as an item shows it.
struct RangeItem {
  std::string Gruppe;
  std::int32_t StartWert = 0;
  std::int32_t EndWert = 0;
  std::int32_t AktuellerWert = 0;
  std::int32_t Buchungskreis = 0;
  bool Aktiviert = false;
  std::string NSchl;
  std::string NBezeichnung;
  std::int32_t SortierIndex = 0;
  std::string IstNSchlVon;
  std::string Maske;
};

/// Adds a range item with the picture of `user`'s view. Failures are reported.
void AddBuchungskreis(HostContext& context, const RangeItem& range, const std::string& user);

/// Toggles what a click on the item's picture toggles in that view: in the common view the range
/// for everybody (not the standard range), in a user's view, while all booking circles are shown,
/// the user's choice. Sets the changed flag and runs the activity rule, also where the click
/// changed nothing. Failures are reported.
void CheckBoxHandling(HostContext& context, std::int32_t index, const std::string& user,
                      const std::string& filter);

/// Makes the item the user's only active range among the ranges of its group. Failures are
/// reported.
void SetRadioButton(HostContext& context, std::int32_t index, const std::string& user);

}  // namespace basAllgemein
}  // namespace vexnumkr
