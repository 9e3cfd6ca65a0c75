// Texts of the dialogs as Qt's widgets take them, never mistaken for markup.
#pragma once

#include <QString>
#include <string_view>

namespace vexnumkr {

/// `text` (UTF-8) as Qt has it.
QString toQString(std::string_view text);

/// A tool tip that shows `text` as it stands, a carriage return and line feed being a line break.
QString asPlainToolTip(QString text);

}  // namespace vexnumkr
