#include "adapters/qtsql/field_value.h"

#include <QtCore/QByteArray>
#include <QtCore/QStringDecoder>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "adapters/qtsql/failure.h"

namespace vexnumkr::qtsql {
namespace {

constexpr auto smallest = std::numeric_limits<std::int32_t>::min();
constexpr auto largest = std::numeric_limits<std::int32_t>::max();

Value integerValue(qlonglong number) {
  if (number < smallest || number > largest) return std::to_string(number);
  return static_cast<std::int32_t>(number);
}

Value unsignedValue(qulonglong number) {
  if (number > static_cast<qulonglong>(largest)) return std::to_string(number);
  return static_cast<std::int32_t>(number);
}

Value realValue(double number) {
  if (number >= smallest && number <= largest && std::trunc(number) == number)
    return static_cast<std::int32_t>(number);
  std::array<char, 512>
      digits;  // The longest double has 309 places before or 341 behind the point.
  const auto end = std::to_chars(digits.begin(), digits.end(), number, std::chars_format::fixed);
  std::string text(digits.begin(), end.ptr);
  if (const std::size_t point = text.find('.'); point != std::string::npos) text[point] = ',';
  return text;
}

}  // namespace

QString toQString(std::string_view text) {
  QStringDecoder decoder(QStringDecoder::Utf8,
                         QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
  QString decoded =
      decoder.decode(QByteArrayView(text.data(), static_cast<qsizetype>(text.size())));
  if (decoder.hasError())
    throw failure(failure_number::invalidArgument, "Der Text ist nicht in UTF-8.");
  return decoded;
}

Value toValue(const QVariant& field) {
  if (field.isNull()) return Null();
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
      return unsignedValue(field.toULongLong());
    case QMetaType::Float:
    case QMetaType::Double:
      return realValue(field.toDouble());
    case QMetaType::QByteArray:
      return field.toByteArray().toStdString();
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
