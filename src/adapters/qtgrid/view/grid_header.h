// The headers of a grid's columns.
#pragma once

#include <QHeaderView>

namespace vexnumkr {

/// As high as a row and with the same space beside the texts, so that they stand in line with their
/// columns.
class GridHeader : public QHeaderView {
  Q_OBJECT

 public:
  explicit GridHeader(QWidget* parent);
  QSize sizeHint() const override;

 protected:
  void paintSection(QPainter* painter, const QRect& rect, int section) const override;
};

}  // namespace vexnumkr
