#include "adapters/qtforms/form_memory.h"

#include <QStringList>

namespace vexnumkr::qtforms {
namespace {

constexpr double widestColumn = 4000;  // nobody has drawn a column wider than that

QString widthsOf(const QString& form, const QString& grid) {
  return form + QLatin1Char('/') + grid + QLatin1String("/Spaltenbreiten");
}

QString closedOf(const QString& form, const QString& grid) {
  return form + QLatin1Char('/') + grid + QLatin1String("/Zugeklappt");
}

}  // namespace

QSize FormMemory::size(const QString& form) const {
  if (!keeps()) return {};
  const QSettings file(fileName_, QSettings::IniFormat);
  return file.value(form + QLatin1String("/Fenster")).toSize();
}

void FormMemory::keepSize(const QString& form, const QSize& size) {
  if (!keeps()) return;
  QSettings file(fileName_, QSettings::IniFormat);
  file.setValue(form + QLatin1String("/Fenster"), size);
}

// A width a word, "3=87".
GridLook FormMemory::look(const QString& form, const QString& grid) const {
  GridLook look;
  if (!keeps()) return look;
  const QSettings file(fileName_, QSettings::IniFormat);
  for (const QString& entry : file.value(widthsOf(form, grid)).toStringList()) {
    const double width = entry.section(QLatin1Char('='), 1).toDouble();
    const bool isUsable = width > 0 && width < widestColumn;
    if (isUsable) look.widths[entry.section(QLatin1Char('='), 0, 0).toInt()] = width;
  }
  for (const QString& caption : file.value(closedOf(form, grid)).toStringList())
    look.closedGroups.push_back(caption.toStdString());
  return look;
}

void FormMemory::keepLook(const QString& form, const QString& grid, const GridLook& look) {
  if (!keeps()) return;
  QSettings file(fileName_, QSettings::IniFormat);
  QStringList widths;
  for (const auto& [column, width] : look.widths)
    widths << QStringLiteral("%1=%2").arg(column).arg(width);
  QStringList closed;
  for (const std::string& caption : look.closedGroups) closed << QString::fromStdString(caption);
  file.setValue(widthsOf(form, grid), widths);
  file.setValue(closedOf(form, grid), closed);
}

}  // namespace vexnumkr::qtforms
