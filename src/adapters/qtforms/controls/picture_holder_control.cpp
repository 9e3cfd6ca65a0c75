#include "adapters/qtforms/controls/picture_holder_control.h"

#include "adapters/qt/picture_art.h"

namespace vexnumkr::qtforms {

PictureHolderControl::PictureHolderControl(const ControlDescription& description, QWidget& parent)
    : WidgetControl(description, parent), picture_(pictureHandle(description.picture)) {
  widget_.setVisible(false);
}

bool PictureHolderControl::Visible() const { return false; }

void PictureHolderControl::Visible(bool) {}

PictureHandle PictureHolderControl::Picture() const { return picture_; }

}  // namespace vexnumkr::qtforms
