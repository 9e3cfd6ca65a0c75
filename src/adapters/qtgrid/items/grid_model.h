// A grid's items as an item model for Qt's views. Holds no rules.
#pragma once

#include <QAbstractItemModel>
#include <vector>

#include "adapters/qtgrid/items/grid_items.h"
#include "platform/forms.h"

namespace vexnumkr {

/// The model's columns are the shown columns of the grid, called sections here; hidden ones are not
/// part of it. An index carries its item's number, so both ways between them take constant time.
///
/// Outside of updates every change is signalled by itself, with its roles. Between beginUpdate()
/// and endUpdate() the model is silent: changed cells are signalled at the end; once the structure
/// changes, the model looks empty to views until one reset at the end shows the new state.
class GridModel : public QAbstractItemModel {
  Q_OBJECT

 public:
  GridModel(const std::vector<ColumnDescription>& columns, QObject* parent);

  const GridItems& items() const { return items_; }

  // The changes that a grid offers; errors as GridItems raises them.
  int append(std::string_view text);
  void clear();
  void setLevel(int item, int level);
  void setText(int item, int column, std::string_view text);
  void setNumber(int item, int column, std::int32_t number);
  void setPicture(int item, PictureHandle picture);
  void setStyle(int item, int column, const CellStyle& style);
  void setShown(int column, bool shown);

  void beginUpdate();
  /// Whether the model was reset by it.
  bool endUpdate();

  /// The item of a valid index.
  static int itemOf(const QModelIndex& index) { return static_cast<int>(index.internalId()); }
  /// Invalid where there is no such item or section.
  QModelIndex indexOf(int item, int section = 0) const;
  int columnOf(int section) const { return shown_[static_cast<std::size_t>(section)]; }
  /// -1 for a hidden column.
  int sectionOf(int column) const;
  Qt::Alignment alignmentOf(int section) const;
  bool isEditable(int section) const;
  /// Whether an editable section's cells take entries just now.
  bool takesEntries(int section) const { return acceptsEntries_ && isEditable(section); }
  void acceptEntries(bool accepts) { acceptsEntries_ = accepts; }
  /// Whether the item's picture is an option button that cannot be chosen just now.
  bool isInert(int item) const;
  void acceptChoices(bool accepts) { acceptsChoices_ = accepts; }
  /// Whether its texts begin where those of the section before end.
  bool standsApart(int section) const;
  /// Qt::Checked or Qt::Unchecked, as the item's picture says; invalid for one that says neither.
  QVariant checkState(int item) const;
  /// What the item's picture says, in words; empty for an item without a picture.
  QString pictureText(int item) const;

  QModelIndex index(int row, int section, const QModelIndex& parent = {}) const override;
  QModelIndex parent(const QModelIndex& child) const override;
  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  /// What of a cell has changed.
  enum class Change { Text, Picture, Style };

  static QList<int> rolesOf(Change change);
  bool knows(const QModelIndex& index) const;
  void announceReset();
  void moveLastUnderGroup();
  void cellChanged(int item, int column, Change change);
  void signalChangedRows();

  std::vector<ColumnDescription> columns_;
  std::vector<int> shown_;  // the grid columns by section
  GridItems items_;
  bool acceptsEntries_ = true;
  bool acceptsChoices_ = true;
  int updateDepth_ = 0;
  bool resetting_ = false;
  int firstChanged_ = -1;  // the items whose cells have changed during an update
  int lastChanged_ = -1;
};

}  // namespace vexnumkr
