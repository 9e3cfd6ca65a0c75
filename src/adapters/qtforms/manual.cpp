#include "adapters/qtforms/manual.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QStringList>
#include <QUrl>

namespace vexnumkr::qtforms {
namespace {

// Beside the program as installations for Windows have it, and where others put documentation.
QStringList places() {
  const QDir program(QCoreApplication::applicationDirPath());
  return {program.filePath(QStringLiteral("handbuch/handbuch.html")),
          program.filePath(QStringLiteral("../share/doc/vexnumkr/html/handbuch.html")),
          QStringLiteral(VEXNUMKR_MANUAL)};
}

}  // namespace

void openManual() {
  for (const QString& place : places()) {
    if (!QFileInfo::exists(place)) continue;
    QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(place).canonicalFilePath()));
    return;
  }
}

}  // namespace vexnumkr::qtforms
