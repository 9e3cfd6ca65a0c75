// The range table in the tree grid: one group item per number key, below it one item per range.
#pragma once

#include <cstdint>
#include <string>

#include "dialogs/main/grid_columns.h"
#include "hosting/session.h"
#include "platform/tree_grid.h"

namespace vexnumkr {

/// The pictures that show a range's state in the grid.
struct StatePictures {
  PictureHandle Checked = noPicture;
  PictureHandle Unchecked = noPicture;
  PictureHandle ValueFalse = noPicture;
  PictureHandle ValueTrue = noPicture;
  PictureHandle NotFound = noPicture;
};

/// What the grid is built for: a booking-circle filter ("Alle Buchungskreise", "Aktive
/// Buchungskreise" or a description) and a user ("Alle Benutzer" or a name).
struct View {
  std::string filter;
  std::string user;

  bool isCommon() const { return user == alleBenutzer; }
  bool showsAllCircles() const { return filter == alleBuchungskreise; }
  bool showsActiveCircles() const { return filter == aktiveBuchungskreise; }
  bool showsOneCircle() const { return !showsAllCircles() && !showsActiveCircles(); }
  bool showsEverything() const { return showsAllCircles() && isCommon(); }
};

/// The values of a range as they are shown.
struct ShownValues {
  std::int32_t StartWert = 0;
  std::int32_t AktuellerWert = 0;
  std::int32_t EndWert = 0;
  std::string Maske;
};

/// The grid is only a view. It is rebuilt from the range table for a filter and a user, and what
/// the user ticks is written into the range table at once. The item's picture is its state: check
/// boxes in the common view (any number of booking circles may be active for a key), option buttons
/// in a user's view (a user draws from exactly one range per key).
///
/// Every procedure reports its failures under its own name.
class Tree {
 public:
  /// Both are borrowed.
  Tree(Session& session, TreeGrid& grid) : session_(session), grid_(grid) {}

  TreeGrid& grid() { return grid_; }
  void pictures(const StatePictures& pictures) { pictures_ = pictures; }

  /// Rebuilds the grid. The same position is current afterwards. REQUIRES: each key's rows stand
  /// together in the range table, the standard range first. A failure leaves the items added until
  /// then.
  void SyncDataWithControl(const View& view);

  /// Toggles what a click on the item's picture toggles in that view: in the common view the range
  /// for everybody (not the standard range), in a user's view, while all booking circles are shown,
  /// the user's choice. Sets the changed flag and runs the activity rule, also where the click
  /// changed nothing.
  void CheckBoxHandling(std::int32_t index, const View& view);

 private:
  void AddGroup(const RangeRow& range);
  void AddBuchungskreis(const RangeRow& range, const ShownValues& values, const View& view);
  void SetRadioButton(std::int32_t index, const std::string& user);

  void addItems(const View& view);
  void addKey(const RangeRow& range, const View& view);
  void addPlaceholder();
  bool userLacksRange(const View& view, const std::string& key);
  PictureHandle statePicture(const View& view, bool active) const;
  std::int32_t circleOf(std::int32_t index) const;
  RangeRow rangeOf(std::int32_t index);
  void setActive(std::int32_t index, const std::string& user, PictureHandle picture, bool active);
  void untick(std::int32_t index, const std::string& user);
  void tick(std::int32_t index, const std::string& user);

  template <class Body>
  void reporting(const char* procedure, Body&& body) {
    reportingFailures(session_.reporter(), {generalModule, procedure}, std::forward<Body>(body));
  }

  Session& session_;
  TreeGrid& grid_;
  StatePictures pictures_;
};

}  // namespace vexnumkr
