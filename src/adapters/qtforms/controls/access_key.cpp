#include "adapters/qtforms/controls/access_key.h"

namespace vexnumkr::qtforms {

QKeySequence accessKeySequence(char key) {
  if (key == 0) return {};
  return QKeySequence(Qt::ALT | static_cast<Qt::Key>(key));
}

QString withAccessKey(const QString& caption, char key) {
  const qsizetype place = key == 0 ? -1 : caption.indexOf(QLatin1Char(key));
  return place < 0 ? caption : QString(caption).insert(place, QLatin1Char('&'));
}

}  // namespace vexnumkr::qtforms
