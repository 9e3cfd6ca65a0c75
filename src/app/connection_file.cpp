#include "app/connection_file.h"

#include <QFile>
#include <QString>

#include "app/command_line.h"

namespace vexnumkr::app {

std::string readConnectionFile(const std::string& file) {
  QFile source(QString::fromStdString(file));
  if (!source.open(QIODevice::ReadOnly)) {
    throw UsageError("Die Verbindungsdatei " + file +
                     " ist nicht zu lesen: " + source.errorString().toStdString());
  }
  const auto others = QFileDevice::ReadGroup | QFileDevice::WriteGroup | QFileDevice::ReadOther |
                      QFileDevice::WriteOther;
  if (source.permissions() & others) {
    throw UsageError("Die Verbindungsdatei " + file +
                     " darf nur für ihren Eigentümer lesbar sein (chmod 600).");
  }
  const std::string line = source.readLine().trimmed().toStdString();
  if (line.empty()) throw UsageError("Die Verbindungsdatei " + file + " ist leer.");
  return line;
}

}  // namespace vexnumkr::app
