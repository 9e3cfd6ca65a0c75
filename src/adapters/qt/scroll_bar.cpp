#include "adapters/qt/scroll_bar.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QStyleOptionSlider>

namespace vexnumkr {

void ScrollBar::contextMenuEvent(QContextMenuEvent* event) {
  if (style()->styleHint(QStyle::SH_ScrollBar_ContextMenu, nullptr, this) == 0) {
    QScrollBar::contextMenuEvent(event);
    return;
  }
  const bool upright = orientation() == Qt::Vertical;
  const auto either = [upright](const char* vertical, const char* horizontal) {
    return QString::fromUtf8(upright ? vertical : horizontal);
  };
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->setFont(font());
  menu->setPalette(palette());
  menu->addAction(QStringLiteral("Hierher scrollen"), this,
                  [this, position = event->pos()] { scrollHere(position); });
  menu->addSeparator();
  addCommand(*menu, either("Anfang", "Linker Rand"), SliderToMinimum);
  addCommand(*menu, either("Ende", "Rechter Rand"), SliderToMaximum);
  menu->addSeparator();
  addCommand(*menu, either("Eine Seite nach oben", "Eine Seite nach links"), SliderPageStepSub);
  addCommand(*menu, either("Eine Seite nach unten", "Eine Seite nach rechts"), SliderPageStepAdd);
  menu->addSeparator();
  addCommand(*menu, either("Nach oben scrollen", "Nach links scrollen"), SliderSingleStepSub);
  addCommand(*menu, either("Nach unten scrollen", "Nach rechts scrollen"), SliderSingleStepAdd);
  menu->popup(event->globalPos());
}

void ScrollBar::addCommand(QMenu& menu, const QString& caption, SliderAction action) {
  menu.addAction(caption, this, [this, action] { triggerAction(action); });
}

// The middle of the slider goes where the mouse is.
void ScrollBar::scrollHere(const QPoint& position) {
  QStyleOptionSlider option;
  initStyleOption(&option);
  const auto part = [&](QStyle::SubControl control) {
    return style()->subControlRect(QStyle::CC_ScrollBar, &option, control, this);
  };
  const QRect groove = part(QStyle::SC_ScrollBarGroove);
  const QRect slider = part(QStyle::SC_ScrollBarSlider);
  const bool upright = orientation() == Qt::Vertical;
  const int length = upright ? slider.height() : slider.width();
  const int room = (upright ? groove.height() : groove.width()) - length;
  const int at = upright ? position.y() - groove.top() : position.x() - groove.left();
  setValue(QStyle::sliderValueFromPosition(minimum(), maximum(), at - length / 2, room,
                                           option.upsideDown));
}

}  // namespace vexnumkr
