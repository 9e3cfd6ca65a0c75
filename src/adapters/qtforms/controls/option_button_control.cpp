#include "adapters/qtforms/controls/option_button_control.h"

#include <QStyle>
#include <QStyleOptionButton>
#include <QStylePainter>

#include "adapters/qt/picture_art.h"

namespace vexnumkr::qtforms {

void RadioButton::paintEvent(QPaintEvent*) {
  QStylePainter painter(this);
  QStyleOptionButton option;
  initStyleOption(&option);
  const auto part = [&](QStyle::SubElement element) {
    return style()->subElementRect(element, &option, this);
  };
  paintPicture(painter, part(QStyle::SE_RadioButtonIndicator),
               isChecked() ? PictureKind::OptionOn : PictureKind::OptionOff, palette(),
               isEnabled() ? 1.0 : 0.4);
  if (hasFocus()) {
    QStyleOptionFocusRect focus;
    focus.QStyleOption::operator=(option);
    focus.rect = part(QStyle::SE_RadioButtonFocusRect);
    painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
  }
  option.rect = part(QStyle::SE_RadioButtonContents);
  painter.drawControl(QStyle::CE_RadioButtonLabel, option);
}

OptionButtonControl::OptionButtonControl(const ControlDescription& description, QWidget& parent)
    : WidgetControl(description, parent) {
  widget_.setText(toQt(description.caption));
  OptionButtonControl::fit();
}

bool OptionButtonControl::Value() const { return widget_.isChecked(); }

void OptionButtonControl::Value(bool selected) {
  // Qt lets no button of an exclusive group be switched off by itself.
  widget_.setAutoExclusive(selected);
  widget_.setChecked(selected);
  widget_.setAutoExclusive(true);
}

void OptionButtonControl::fit() {
  QStyleOptionButton option;
  option.initFrom(&widget_);
  const QRect contents =
      widget_.style()->subElementRect(QStyle::SE_RadioButtonContents, &option, &widget_);
  widget_.setFont(
      fitted(widget_.font(), plainCaption(widget_.text().toStdString()), contents.width()));
}

}  // namespace vexnumkr::qtforms
