#include "adapters/qtforms/manual.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QStringList>
#include <QUrl>

#if defined(_WIN32)
#include <windows.h>

#include <array>
#else
#include <QCoreApplication>
#endif

namespace vexnumkr::qtforms {
namespace {

#if defined(_WIN32)

// Of the library file that this is part of, whatever program has loaded it; empty where its path is
// longer than paths mostly are.
QString ownFolder() {
  HMODULE self = nullptr;
  GetModuleHandleExW(
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
      reinterpret_cast<LPCWSTR>(&ownFolder), &self);
  std::array<wchar_t, 1024> path = {};
  const DWORD length = GetModuleFileNameW(self, path.data(), static_cast<DWORD>(path.size()));
  if (length == 0 || length == path.size()) return {};
  return QFileInfo(QString::fromWCharArray(path.data(), static_cast<qsizetype>(length)))
      .absolutePath();
}

// As archive and installer have it, and nowhere else: in other folders anybody may lay a page.
QStringList places() {
  const QString folder = ownFolder();
  if (folder.isEmpty()) return {};
  return {QDir(folder).filePath(QStringLiteral("handbuch/handbuch.html"))};
}

#else

// Beside the program, where all of it has been moved, and where it was installed.
QStringList places() {
  const QDir program(QCoreApplication::applicationDirPath());
  return {program.filePath(QStringLiteral("../share/doc/vexnumkr/html/handbuch.html")),
          QStringLiteral(VEXNUMKR_MANUAL)};
}

#endif

}  // namespace

void openManual() {
  for (const QString& place : places()) {
    if (!QFileInfo::exists(place)) continue;
    QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(place).canonicalFilePath()));
    return;
  }
}

}  // namespace vexnumkr::qtforms
