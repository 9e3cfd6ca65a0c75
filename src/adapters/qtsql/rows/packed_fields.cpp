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

void PackedFields::add(const QVariant& field) { cells_.push_back(packed(field)); }

void PackedFields::set(std::size_t place, const QVariant& field) { cells_[place] = packed(field); }

PackedFields::Cell PackedFields::packed(const QVariant& field) {
  if (!field.isNull()) {
    switch (field.typeId()) {
      case QMetaType::QString:
        return packedText(*static_cast<const QString*>(field.constData()));
      case QMetaType::Int:
        return {Cell::Kind::int32, 0, {.number = field.toInt()}};
      case QMetaType::LongLong:
        return {Cell::Kind::int64, 0, {.number = field.toLongLong()}};
      default:
        break;
    }
  }
  return {Cell::Kind::other, 0, {.other = &others_.emplace_back(field)}};
}

PackedFields::Cell PackedFields::packedText(const QString& text) {
  constexpr std::size_t firstPiece = 4096;
  if (texts_ == nullptr) texts_ = std::make_unique<std::pmr::monotonic_buffer_resource>(firstPiece);
  const auto length = static_cast<std::uint32_t>(text.size());
  auto* const kept =
      static_cast<char16_t*>(texts_->allocate(length * sizeof(char16_t), alignof(char16_t)));
  std::copy_n(text.utf16(), length, kept);
  return {Cell::Kind::text, length, {.text = kept}};
}

QVariant PackedFields::at(std::size_t place) const {
  const Cell& cell = cells_[place];
  switch (cell.kind) {
    case Cell::Kind::text:
      return QString(reinterpret_cast<const QChar*>(cell.text), cell.length);
    case Cell::Kind::int32:
      return static_cast<int>(cell.number);
    case Cell::Kind::int64:
      return static_cast<qlonglong>(cell.number);
    case Cell::Kind::other:
      break;
  }
  return *cell.other;
}

Value PackedFields::value(std::size_t place) const {
  const Cell& cell = cells_[place];
  switch (cell.kind) {
    case Cell::Kind::text:
      return sharedText(cell.text, cell.length).toStdString();
    case Cell::Kind::int32:
    case Cell::Kind::int64:
      return integerValue(cell.number);
    case Cell::Kind::other:
      break;
  }
  return toValue(*cell.other);
}

}  // namespace vexnumkr::qtsql
