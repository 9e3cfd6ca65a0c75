// The tree grid as the dialogs use it: two levels of items with text cells, one picture per item,
// and an editor that opens in a single cell.
//
// Items are addressed by their 0-based index over the whole list, children included, whether their
// group is expanded or not. Columns are numbered from 0; column 0 is never shown.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/forms.h"

namespace vexnumkr {

/// A background colour: an RGB value, or a system colour where the highest bit is set
/// (0x80000018 is the background of tool tips). gridDefaultColour leaves the grid's own.
using GridColour = std::uint32_t;
inline constexpr GridColour gridDefaultColour = 0xFFFFFFFF;
inline constexpr GridColour toolTipBackground = 0x80000018;

/// Where in an item a click went.
enum class GridArea : std::int16_t { Other = 0, Picture = 4, Cell = 5 };

/// How full a range is, as a bar in a cell shows it.
enum class FillStage { Plenty, Low, Critical };

struct CellFill {
  std::int32_t thousandths = 0;
  FillStage stage = FillStage::Plenty;
};

/// What a cell shows besides its text. None of it is the text's or the item's own: it is asked for
/// whenever the cell is painted or described.
struct CellNote {
  std::optional<CellFill> fill;
  bool changed = false;   ///< other than when it was loaded
  bool involved = false;  ///< its item stands against the entry that is being made
  std::string text;       ///< what all that means, in words; lines end in a line feed
};

/// What is said of the text in an open editor.
struct EntryNote {
  std::string text;
  bool refuses = false;  ///< whether it speaks against the entry
};

/// What the grid tells its form. `key` and `shift` follow key_code and key_shift in forms.h.
class TreeGridEvents {
 public:
  virtual ~TreeGridEvents() = default;
  /// A click on an item, which is the current one by then. `button` is 1 for the left button.
  virtual void ItemClick(std::int32_t index, std::int16_t column, GridArea area,
                         std::int16_t button) = 0;
  /// A key pressed while no cell is being edited.
  virtual void KeyDown(std::int16_t key) = 0;
  /// A key pressed in the cell editor. Setting `key` to 0 keeps the editor from seeing it.
  virtual void CEKeyDown(std::int16_t& key, std::int16_t shift, std::int32_t index,
                         std::int16_t column) = 0;
  /// An edit that changed its text ends. Setting `cancel` keeps the editor open with the text;
  /// otherwise the cell gets `text`, which may have been altered, after the handler has returned.
  virtual void AfterEdit(std::int32_t index, std::int16_t column, bool& cancel,
                         std::string& text) = 0;
  /// A tool tip is wanted for a cell; `text` holds the grid's proposal.
  virtual void ToolTipText(std::int16_t column, std::string& text) = 0;
  /// What a shown cell has besides its text is wanted.
  virtual void DescribeCell(std::int32_t /*index*/, std::int16_t /*column*/, CellNote& /*note*/) {}
  /// An editor has opened, or its text is another one; what is there to be said of it?
  virtual void CEChange(std::int32_t /*index*/, std::int16_t /*column*/,
                        const std::string& /*text*/, EntryNote& /*note*/) {}
  /// The editor has closed.
  virtual void CEClosed() {}

 protected:
  TreeGridEvents() = default;
  TreeGridEvents(const TreeGridEvents&) = default;
  TreeGridEvents& operator=(const TreeGridEvents&) = default;
};

/// The grid. Reading or writing a cell, level or picture of an item outside the list: error 9.
class TreeGrid : public Control {
 public:
  /// Appends an item at level 0 with `text` in column 0; returns its index.
  virtual std::int32_t AddItem(std::string_view text) = 0;
  /// Removes all items and ends an edit in progress without keeping its text.
  virtual void Clear() = 0;
  virtual std::int32_t ListCount() const = 0;

  virtual void ItemLevel(std::int32_t index, std::int16_t level) = 0;
  virtual std::int16_t ItemLevel(std::int32_t index) const = 0;

  /// The text of a cell; "" for one that was never filled. Setting a number stores its decimal
  /// text.
  virtual std::string List(std::int32_t index, std::int16_t column) const = 0;
  virtual void List(std::int32_t index, std::int16_t column, std::string_view text) = 0;
  virtual void List(std::int32_t index, std::int16_t column, std::int32_t number) = 0;

  virtual Font CellFont(std::int32_t index, std::int16_t column) const = 0;
  virtual void CellFontBold(std::int32_t index, std::int16_t column, bool bold) = 0;
  virtual void CellBackColor(std::int32_t index, std::int16_t column, GridColour colour) = 0;

  /// noPicture for an item without.
  virtual PictureHandle ItemPicture(std::int32_t index) const = 0;
  virtual void ItemPicture(std::int32_t index, PictureHandle picture) = 0;

  /// The current item; -1 for none. Setting a position that does not exist leaves none.
  virtual std::int32_t ListIndex() const = 0;
  virtual void ListIndex(std::int32_t index) = 0;
  virtual void Selected(std::int32_t index, bool selected) = 0;

  /// Scrolls as little as it takes to show a group with its items, from the group on where there is
  /// no room for all; nothing becomes current.
  virtual void ShowGroup(std::int32_t index) = 0;

  /// The first item at or after `start` whose cell equals `text`; when there is none, the first
  /// whose cell begins with it; else -1. Case-sensitive.
  virtual std::int32_t FindString(std::int32_t start, std::int16_t column,
                                  std::string_view text) const = 0;

  /// Whether the cells of editable columns take entries just now. They look so, and assistive
  /// technology is told; nothing else depends on it. A new grid takes them.
  virtual void AcceptsEntries(bool accepts) = 0;
  /// Whether option buttons can be chosen just now. They look so, and assistive technology is told;
  /// nothing else depends on it. In a new grid they can.
  virtual void AcceptsChoices(bool accepts) = 0;

  /// How many characters an editor in that column takes; 0 for any number. A text that a cell holds
  /// already is never cut.
  virtual void ColTextLimit(std::int16_t column, std::int32_t characters) = 0;

  /// Makes the item current and visible and opens the editor in its cell, the whole text selected.
  virtual void StartEdit(std::int32_t index, std::int16_t column) = 0;
  /// Ends the edit in progress, keeping its text or dropping it; raises AfterEdit where the kept
  /// text differs from the one that the cell opened with. True when no cell is being edited
  /// afterwards.
  virtual bool EndEdit(bool keepText) = 0;

  virtual void ItemEditFont(const Font& font) = 0;
  virtual void ColHeaderFont(const Font& font) = 0;
  virtual void RowHeaderFont(const Font& font) = 0;
  /// The picture of the button in cells that offer one.
  virtual void CellButtonPicture(PictureHandle picture) = 0;
  /// The grid property with dispatch id 11; a display style of the host applications' grid.
  virtual void DisplayStyle(std::int16_t style) = 0;

  /// A column's width in grid units (pixels at 96 dots per inch); 0 hides it. The first shown
  /// column is as wide as the others leave it, and at least as wide as set.
  virtual double ColWidth(std::int16_t column) const = 0;
  virtual void ColWidth(std::int16_t column, double width) = 0;

  /// Between these two, nothing is painted and nothing is laid out; calls nest.
  virtual void BeginUpdate() = 0;
  virtual void EndUpdate() = 0;

  /// Who hears of clicks, keys and edits; borrowed.
  virtual void Events(TreeGridEvents* events) = 0;
};

}  // namespace vexnumkr
