// A grid in a dialog, driven by real mouse and key events.
#pragma once

#include <gtest/gtest.h>

#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeView>
#include <QtTest>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "adapters/qt/picture_art.h"
#include "adapters/qtgrid/qt_tree_grid.h"

namespace vexnumkr::test {

/// Notes every event as a line, e.g. "click 3 1 picture 1", and lets a test answer it. The presses
/// of Shift, Ctrl and Alt by themselves are not noted.
class GridEvents : public TreeGridEvents {
 public:
  std::vector<std::string> lines;
  std::function<void()> onClick;
  std::function<void(std::int16_t)> onKey;
  std::function<void(std::int16_t&, std::int16_t)> onEditorKey;
  std::function<void(bool&, std::string&)> onAfterEdit;
  std::function<void(std::int16_t, std::string&)> onToolTip;

  std::function<void(std::int32_t, std::int16_t, CellNote&)> onDescribe;
  std::function<void(const std::string&, EntryNote&)> onChange;

  void ItemClick(std::int32_t index, std::int16_t column, GridArea area,
                 std::int16_t button) override;
  void KeyDown(std::int16_t key) override;
  void CEKeyDown(std::int16_t& key, std::int16_t shift, std::int32_t index,
                 std::int16_t column) override;
  void AfterEdit(std::int32_t index, std::int16_t column, bool& cancel, std::string& text) override;
  void ToolTipText(std::int16_t column, std::string& text) override;
  void DescribeCell(std::int32_t index, std::int16_t column, CellNote& note) override {
    if (onDescribe) onDescribe(index, column, note);
  }
  void CEChange(std::int32_t /*index*/, std::int16_t /*column*/, const std::string& text,
                EntryNote& note) override {
    if (onChange) onChange(text, note);
  }
};

using Lines = std::vector<std::string>;

/// Those of gridDescription: five that are shown, with headers like those of the number ranges, and
/// two hidden ones. Column 0 is hidden as well.
namespace column {
inline constexpr std::int16_t Beschreibung = 1;
inline constexpr std::int16_t Start = 2;
inline constexpr std::int16_t Aktuell = 3;
inline constexpr std::int16_t Ende = 4;
inline constexpr std::int16_t Maske = 5;
inline constexpr std::int16_t NSchl = 6;
inline constexpr std::int16_t Type = 7;
}  // namespace column

/// A grid of these columns.
ControlDescription gridDescription();

/// Two groups of three ranges: items 0 and 4 are the groups. Item i holds 1000 + i as its
/// start.
class GridTest : public testing::Test {
 protected:
  static constexpr int groupSize = 4;

  GridTest();
  void SetUp() override;

  void addGroup(const std::string& caption, int children);
  void fill(int groups, int children);
  void rebuild(int groups, int children, int current);

  QTreeView& view() const { return *qobject_cast<QTreeView*>(grid->widget()); }
  QModelIndex cell(int item, int column) const;
  /// Where the cell stands in the viewport, the space of the tree included.
  QRect cellRect(int item, int column) const;
  bool inSight(int item) const;
  QPoint textOf(int item, int column) const;
  QPoint pictureOf(int item) const;
  QPoint arrowOf(int item) const;
  void click(const QPoint& position, Qt::MouseButton button = Qt::LeftButton);
  void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
  void type(const char* text);
  /// The open editor, or null.
  QLineEdit* editor() const;
  bool editorHasFocus() const;
  /// Events since the last call.
  Lines events();

  QDialog window;
  std::unique_ptr<QtTreeGrid> grid;
  QPushButton* ok = nullptr;
  QPushButton* other = nullptr;
  GridEvents handler;
};

}  // namespace vexnumkr::test
