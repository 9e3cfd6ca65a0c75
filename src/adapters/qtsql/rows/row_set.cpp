#include "adapters/qtsql/rows/row_set.h"

#include <QSqlQuery>
#include <algorithm>

#include "adapters/qtsql/rows/field_value.h"
#include "platform/ascii_case.h"

namespace vexnumkr::qtsql {
namespace {

bool equalsInUnicode(std::string_view a, std::string_view b) {
  const auto folded = [](std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())).toCaseFolded();
  };
  return folded(a) == folded(b);
}

bool hasSubstitute(const QVariant& cell) {
  return cell.typeId() == QMetaType::QString &&
         static_cast<const QString*>(cell.constData())->contains(QChar::ReplacementCharacter);
}

// A text may come as bytes in one of them.
bool differ(const QVariant& a, const QVariant& b) {
  return a.isNull() != b.isNull() || a.toByteArray() != b.toByteArray();
}

bool isAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

bool mayLackOne(const QVariant& cell) {
  if (cell.typeId() != QMetaType::QString && cell.typeId() != QMetaType::QByteArray) return false;
  const QByteArray text = cell.toByteArray();
  return text.contains('?') || !isAscii({text.data(), static_cast<std::size_t>(text.size())});
}

// Of rows that can be gone through twice, Qt's driver for PostgreSQL would also ask the server for
// the names of their tables, between this statement's results.
QSqlRecord headerOf(QSqlQuery& query) {
  const bool isForwardOnly = query.isForwardOnly();
  query.setForwardOnly(true);
  const QSqlRecord header = query.record();
  query.setForwardOnly(isForwardOnly);
  return header;
}

}  // namespace

RowSet::RowSet(QSqlQuery& query, const Substituted& substituted, std::size_t most)
    : header_(headerOf(query)) {
  width_ = visible_ = static_cast<std::size_t>(header_->count());
  for (std::size_t row = 0; row < most && query.next(); ++row) {
    for (int column = 0; column < header_->count(); ++column) {
      const QVariant field = query.value(column);
      fields_.add(field);
      if (substituted && hasSubstitute(field)) substituted(row, static_cast<std::size_t>(column));
    }
  }
}

void RowSet::markUnreadable(std::size_t row, std::size_t column) {
  set(row, column, QVariant::fromValue(UnreadableText()));
}

void RowSet::markDifferences(const RowSet& whole) {
  for (std::size_t row = 0; row < rowCount(); ++row)
    for (std::size_t column = 0; column < width_; ++column)
      if (row >= whole.rowCount() || differ(at(row, column), whole.at(row, column)))
        markUnreadable(row, column);
}

bool RowSet::mayLackCharacters() const {
  for (std::size_t place = 0; place < fields_.size(); ++place)
    if (mayLackOne(fields_.at(place))) return true;
  return false;
}

std::optional<std::size_t> RowSet::column(std::string_view name) const {
  if (names_.empty()) readNames();
  const auto position = [&](auto equals) {
    const auto found = std::find_if(names_.begin(), names_.end(),
                                    [&](const std::string& known) { return equals(known, name); });
    return static_cast<std::size_t>(found - names_.begin());
  };
  std::size_t found = position([](std::string_view known, std::string_view asked) {
    return known == asked || equalsWithoutCase(known, asked);  // mostly as it is
  });
  if (found == names_.size() && !isAscii(name)) found = position(equalsInUnicode);
  if (found == names_.size()) return std::nullopt;
  return found;
}

QString RowSet::columnName(std::size_t column) const {
  return header_->fieldName(static_cast<int>(column));
}

void RowSet::readNames() const {
  names_.reserve(visible_);
  for (std::size_t i = 0; i < visible_; ++i) names_.push_back(columnName(i).toStdString());
}

}  // namespace vexnumkr::qtsql
