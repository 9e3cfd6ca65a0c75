// The headers of a grid's columns.
#pragma once

#include <QHeaderView>

#include "adapters/qtgrid/items/grid_model.h"

namespace vexnumkr {

/// As high as a row and with the same space beside the texts, so that they stand in line with their
/// columns.
class GridHeader : public QHeaderView {
  Q_OBJECT

 public:
  /// `model` is borrowed and outlives this.
  GridHeader(const GridModel& model, QWidget* parent);
  QSize sizeHint() const override;

 protected:
  void paintSection(QPainter* painter, const QRect& rect, int section) const override;

 private:
  const GridModel& model_;
};

}  // namespace vexnumkr
