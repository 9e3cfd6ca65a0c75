// The context menu of a grid's rows.
#pragma once

#include <functional>
#include <vector>

class QPoint;
class QWidget;

namespace vexnumkr {

/// A command of a menu; one without a caption is a line between others.
struct MenuCommand {
  const char* caption = "";
  const char* key = "";  ///< what does the same, only to be seen
  bool isEnabled = false;
  std::function<void()> run = {};
};

/// Opens a menu of `owner`, in its font, at a position on the screen. It goes when it is closed, at
/// the latest with its owner.
void openRowMenu(QWidget& owner, const QPoint& position, const std::vector<MenuCommand>& commands);

}  // namespace vexnumkr
