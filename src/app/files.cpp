#include "app/files.h"

#include <QDir>
#include <QFile>
#include <QString>

#include <vexnumkr/error.h>

namespace vexnumkr::app {
namespace {

constexpr std::int32_t fileExists = 58;
constexpr std::int32_t noAccess = 75;

}  // namespace

void makeNewFile(const std::string& file) {
  QFile made(QString::fromStdString(file));
  if (made.exists())
    throw Error(fileExists, "vexnumkr-host", "Die Datei " + file + " gibt es schon.");
  if (!made.open(QIODevice::WriteOnly | QIODevice::NewOnly)) {
    throw Error(
        noAccess, "vexnumkr-host",
        "Die Datei " + file + " kann nicht angelegt werden: " + made.errorString().toStdString());
  }
}

void makeFolder(const std::string& folder) {
  if (!QDir().mkpath(QString::fromStdString(folder)))
    throw Error(noAccess, "vexnumkr-host", "Der Ordner " + folder + " kann nicht angelegt werden.");
}

}  // namespace vexnumkr::app
