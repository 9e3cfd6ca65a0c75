// The check box or option button of a grid's item as assistive technology sees it.
#pragma once

#include "adapters/qtgrid/accessible/grid_part.h"

namespace vexnumkr {

/// Named like its item. A check box is toggled, an option button is pressed, both as by a click.
class PictureAccessible final : public GridPart, public QAccessibleActionInterface {
 public:
  PictureAccessible(GridAccessible& grid, int item) : GridPart(grid), item_(item) {}

  /// No child of the grid itself.
  int indexInGrid() const override { return -1; }
  /// The name of what can be done with it.
  QString action() const;

  bool isValid() const override;
  QAccessibleInterface* parent() const override { return grid().cell(item_, 0); }
  void* interface_cast(QAccessible::InterfaceType type) override;
  QAccessible::Role role() const override;
  QAccessible::State state() const override;
  QString text(QAccessible::Text kind) const override;
  QRect rect() const override { return onScreen(view().pictureArea(item_)); }

  QStringList actionNames() const override { return {action()}; }
  QString localizedActionName(const QString& name) const override;
  void doAction(const QString& name) override;
  QStringList keyBindingsForAction(const QString& name) const override;

 private:
  bool isChecked() const;
  bool isOption() const;

  int item_;
};

}  // namespace vexnumkr
