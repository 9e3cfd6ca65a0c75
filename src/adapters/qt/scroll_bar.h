// A scroll bar whose context menu is German whatever translations the host has installed.
#pragma once

#include <QScrollBar>

class QMenu;

namespace vexnumkr {

class ScrollBar : public QScrollBar {
  Q_OBJECT

 public:
  using QScrollBar::QScrollBar;

 protected:
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  void addCommand(QMenu& menu, const QString& caption, SliderAction action);
  void scrollHere(const QPoint& position);
};

}  // namespace vexnumkr
