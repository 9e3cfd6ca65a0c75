// Texts of the dialogs (UTF-8) as Qt has them; QString::toStdString leads back.
#pragma once

#include <QString>
#include <string_view>

namespace vexnumkr {

inline QString toQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// With line feeds for the carriage return and line feed pairs of the dialogs' texts.
inline QString toQtLines(std::string_view text) {
  return toQt(text).replace(QLatin1String("\r\n"), QLatin1String("\n"));
}

}  // namespace vexnumkr
