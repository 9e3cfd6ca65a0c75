#include "data/table/table_row.h"

namespace vexnumkr {

Value TableRow::get(std::int32_t column) const {
  const Cell& content = cell(column);
  switch (content.kind) {
    case Cell::Kind::Text:
      return Value(texts_.text(content.textId()));
    case Cell::Kind::Long:
      return Value(content.number());
    case Cell::Kind::Boolean:
      return Value(content.bits != 0);
    case Cell::Kind::Null:
      return Value(Null{});
    case Cell::Kind::Empty:
      break;
  }
  return {};
}

bool TableRow::equals(std::int32_t column, std::string_view text) const {
  const Cell& content = cell(column);
  if (content.kind == Cell::Kind::Empty) return text.empty();
  return content.isText() && texts_.text(content.textId()) == text;
}

}  // namespace vexnumkr
