#include "adapters/qtgrid/control/row_menu.h"

#include <QMenu>
#include <QWidget>

namespace vexnumkr {
namespace {

QString label(const MenuCommand& command) {
  const QString caption = QString::fromUtf8(command.caption);
  if (*command.key == '\0') return caption;
  return caption + QLatin1Char('\t') + QString::fromUtf8(command.key);
}

}  // namespace

void openRowMenu(QWidget& owner, const QPoint& position, const std::vector<MenuCommand>& commands) {
  auto* menu = new QMenu(&owner);
  menu->setObjectName(QStringLiteral("rowMenu"));
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->setFont(owner.font());
  menu->setPalette(owner.palette());
  for (const MenuCommand& command : commands) {
    if (*command.caption == '\0') {
      menu->addSeparator();
    } else {
      menu->addAction(label(command), &owner, command.run)->setEnabled(command.isEnabled);
    }
  }
  menu->popup(position);
}

}  // namespace vexnumkr
