#include "adapters/qtgrid/control/row_texts.h"

namespace vexnumkr {

QString rowLine(const GridModel& model, int item) {
  QStringList texts;
  for (int section = 0; section < model.columnCount(); ++section) {
    texts << model.indexOf(item, section).data().toString().trimmed();
  }
  return texts.join(QLatin1Char('\t'));
}

QStringList rowValues(const QString& copied, int sections) {
  QString line = copied.section(QLatin1Char('\n'), 0, 0);
  line.remove(QLatin1Char('\r'));
  if (line.trimmed().isEmpty()) return {};
  QStringList values;
  for (const QString& text : line.split(QLatin1Char('\t'))) values << text.trimmed();
  if (values.size() == sections) values.removeFirst();
  return values;
}

}  // namespace vexnumkr
