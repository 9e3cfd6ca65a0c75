#include "adapters/qtsql/rows/packed_fields.h"

#include <QString>
#include <algorithm>

#include "adapters/qtsql/rows/field_value.h"
#include "platform/number_value.h"

namespace vexnumkr::qtsql {
namespace {

QString sharedText(const char16_t* text, std::size_t length) {
  return QString::fromRawData(reinterpret_cast<const QChar*>(text), static_cast<qsizetype>(length));
}

}  // namespace

void PackedFields::add(const QVariant& field) {
  if (all_ == nullptr) all_ = std::make_unique<Fields>();
  all_->cells.push_back(packed(field));
}

// What was there stays until all goes, so a field that is set again and again has one place for it.
void PackedFields::set(std::size_t place, const QVariant& field) {
  Cell& cell = all_->cells[place];
  if (cell.kind == Cell::Kind::other)
    *cell.other = field;
  else
    cell = {Cell::Kind::other, 0, {.other = &all_->others.emplace_front(field)}};
}

PackedFields::Cell PackedFields::packed(const QVariant& field) {
  if (field.isNull()) return {Cell::Kind::null, 0, {.number = field.typeId()}};
  switch (field.typeId()) {
    case QMetaType::QString: {
      const auto& text = *static_cast<const QString*>(field.constData());
      const auto length = static_cast<std::uint32_t>(text.size());
      return {Cell::Kind::text,
              length,
              {.text = kept(reinterpret_cast<const char16_t*>(text.utf16()), length)}};
    }
    case QMetaType::QByteArray: {
      const auto& bytes = *static_cast<const QByteArray*>(field.constData());
      const auto length = static_cast<std::uint32_t>(bytes.size());
      return {Cell::Kind::bytes, length, {.bytes = kept(bytes.constData(), length)}};
    }
    case QMetaType::Int:
      return {Cell::Kind::int32, 0, {.number = field.toInt()}};
    case QMetaType::LongLong:
      return {Cell::Kind::int64, 0, {.number = field.toLongLong()}};
    case QMetaType::ULongLong:
      return {Cell::Kind::unsigned64, 0, {.natural = field.toULongLong()}};
    default:
      return {Cell::Kind::other, 0, {.other = &all_->others.emplace_front(field)}};
  }
}

template <class Character>
const Character* PackedFields::kept(const Character* text, std::uint32_t length) {
  auto* const copy =
      static_cast<Character*>(all_->texts.allocate(length * sizeof(Character), alignof(Character)));
  std::copy_n(text, length, copy);
  return copy;
}

QVariant PackedFields::at(std::size_t place) const {
  const Cell& cell = all_->cells[place];
  switch (cell.kind) {
    case Cell::Kind::text:
      return QString(reinterpret_cast<const QChar*>(cell.text), cell.length);
    case Cell::Kind::bytes:
      return QByteArray(cell.bytes, cell.length);
    case Cell::Kind::int32:
      return static_cast<int>(cell.number);
    case Cell::Kind::int64:
      return static_cast<qlonglong>(cell.number);
    case Cell::Kind::unsigned64:
      return static_cast<qulonglong>(cell.natural);
    case Cell::Kind::null:
      return QVariant(QMetaType(static_cast<int>(cell.number)));
    case Cell::Kind::other:
      break;
  }
  return *cell.other;
}

Value PackedFields::value(std::size_t place) const {
  const Cell& cell = all_->cells[place];
  switch (cell.kind) {
    case Cell::Kind::text:
      return sharedText(cell.text, cell.length).toStdString();
    case Cell::Kind::bytes:
      return toValue(QByteArray::fromRawData(cell.bytes, cell.length));
    case Cell::Kind::int32:
    case Cell::Kind::int64:
      return integerValue(cell.number);
    case Cell::Kind::unsigned64:
      return integerValue(cell.natural);
    case Cell::Kind::null:
      return Null();
    case Cell::Kind::other:
      break;
  }
  return toValue(*cell.other);
}

}  // namespace vexnumkr::qtsql
