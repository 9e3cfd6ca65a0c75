// What the grid's cells show besides their texts.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>

#include "dialogs/main/tree.h"
#include "hosting/session.h"
#include "platform/tree_grid.h"

namespace vexnumkr {

/// Says of a range how full it is and which of its values are other than stored, and of an entry
/// being made what speaks against it. Reads the range table, and changes nothing.
///
/// In the middle of work, whose rows must not be searched, cells keep what they showed before.
class CellNotes {
 public:
  /// Both are borrowed.
  CellNotes(Session& session, const TreeGrid& grid) : session_(session), grid_(grid) {}

  /// Of a cell of an item in the view of that user.
  CellNote ofCell(std::int32_t index, std::int16_t column, const std::string& user);
  /// Of a text in the open editor. The range that it overlaps is involved until closeEntry().
  EntryNote ofEntry(std::int32_t index, std::int16_t column, const std::string& text);
  void closeEntry() { partner_.reset(); }
  /// The items are others now.
  void forget() { shown_.clear(); }

 private:
  CellNote freshNote(std::int32_t index, std::int16_t column, const std::string& user) const;
  const RangeRow* rangeOf(std::int32_t index, const std::string& user) const;
  void addFill(const RangeRow& range, CellNote& note) const;
  void addChange(const RangeRow& range, std::int16_t column, CellNote& note) const;
  EntryNote ofNumber(std::int32_t index, std::int16_t column, const std::string& text);
  EntryNote ofMask(const std::string& mask) const;

  Session& session_;
  const TreeGrid& grid_;
  std::optional<RangeId> partner_;
  std::map<std::pair<std::int32_t, std::int16_t>, CellNote> shown_;  // by item and column
};

}  // namespace vexnumkr
