// Access keys: letters that, together with Alt, stand for a click or the focus. They are underlined
// in a control's caption, and the caption itself stays as it is.
#pragma once

#include <QKeySequence>
#include <QString>

namespace vexnumkr::qtforms {

/// Empty for 0.
QKeySequence accessKeySequence(char key);

/// `caption` with the sign that underlines its first `key`; as it is where it has none.
QString withAccessKey(const QString& caption, char key);

}  // namespace vexnumkr::qtforms
