// Values on their way between Qt SQL and the component.
#pragma once

#include <QMetaType>
#include <QString>
#include <QVariant>
#include <string>
#include <string_view>

#include <vexnumkr/value.h>

namespace vexnumkr::qtsql {

/// `text` for Qt, character by character. Error: 3001 when it is not UTF-8.
QString toQString(std::string_view text);

/// What stands in place of a text that is not stored in the database's encoding.
struct UnreadableText {};

/// A field as the component sees it: NULL as Null; integers, booleans and whole reals as a number
/// where 32 bits hold them (True is -1), otherwise as a decimal text; other reals as their shortest
/// exact decimal text, with a comma; a blob as the text of its bytes; anything else as Qt's text.
/// Error: 3024 for UnreadableText, and for a blob that is no text in UTF-8.
Value toValue(const QVariant& field);

/// A value as it is stored: Empty and Null as NULL, booleans as -1 and 0. Error as for toQString.
QVariant toField(const Value& value);

}  // namespace vexnumkr::qtsql

Q_DECLARE_METATYPE(vexnumkr::qtsql::UnreadableText)
