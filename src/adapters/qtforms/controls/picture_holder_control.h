// Picture holders.
#pragma once

#include "adapters/qtforms/controls/widget_control.h"

namespace vexnumkr::qtforms {

/// Keeps a picture for others; its widget only marks its place in the form and is never shown.
class PictureHolderControl final : public WidgetControl<PictureHolder, QWidget> {
 public:
  PictureHolderControl(const ControlDescription& description, QWidget& parent);

  bool Visible() const override;
  void Visible(bool visible) override;
  PictureHandle Picture() const override;

 private:
  PictureHandle picture_;
};

}  // namespace vexnumkr::qtforms
