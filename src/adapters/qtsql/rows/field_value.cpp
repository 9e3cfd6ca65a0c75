#include "adapters/qtsql/rows/field_value.h"

#include <QByteArray>
#include <QStringDecoder>
#include <QUtf8StringView>

#include "adapters/qtsql/opening/failure.h"
#include "platform/number_value.h"

namespace vexnumkr::qtsql {

QString toQString(std::string_view text) {
  // U+FEFF at the beginning of a value is a character of it like any other.
  QStringDecoder decoder(QStringDecoder::Utf8,
                         QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
  QString decoded =
      decoder.decode(QByteArrayView(text.data(), static_cast<qsizetype>(text.size())));
  if (decoder.hasError())
    throw failure(error_number::invalidArgument, "Der Text ist nicht in UTF-8.");
  return decoded;
}

namespace {

std::string textOf(const QByteArray& bytes) {
  if (!QUtf8StringView(bytes).isValidUtf8()) throw unreadableText();
  return bytes.toStdString();
}

}  // namespace

Value toValue(const QVariant& field) {
  if (field.isNull()) return Null();
  if (field.typeId() == qMetaTypeId<UnreadableText>()) throw unreadableText();
  switch (field.typeId()) {
    case QMetaType::QString:
      return static_cast<const QString*>(field.constData())->toStdString();
    case QMetaType::Bool:
      return field.toBool() ? -1 : 0;
    case QMetaType::Char:
    case QMetaType::SChar:
    case QMetaType::UChar:
      return field.toInt();
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
      return integerValue(field.toLongLong());
    case QMetaType::ULongLong:
      return integerValue(field.toULongLong());
    case QMetaType::Float:
    case QMetaType::Double:
      return realValue(field.toDouble());
    case QMetaType::QByteArray:
      return textOf(field.toByteArray());
    default:
      return field.toString().toStdString();
  }
}

QVariant toField(const Value& value) {
  if (value.isLong()) return value.asLong();
  if (value.isBoolean()) return value.asBoolean() ? -1 : 0;
  if (value.isText()) return toQString(value.asText());
  return QVariant(QMetaType::fromType<QString>());
}

}  // namespace vexnumkr::qtsql
