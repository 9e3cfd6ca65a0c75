#include "adapters/qtsql/rows/eight_bit_text.h"

#include <algorithm>

namespace vexnumkr::qtsql {
namespace {

bool isAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

// The bytes of a closed literal: without its quotes, doubled ones inside being one.
std::string content(std::string_view literal) {
  std::string bytes;
  for (std::size_t i = 1; i + 1 < literal.size(); ++i) {
    bytes += literal[i];
    if (literal[i] == '\'') ++i;
  }
  return bytes;
}

std::string asBytes(std::string_view literal) {
  static constexpr std::string_view digits = "0123456789ABCDEF";
  std::string text = "CAST(x'";
  for (const char c : content(literal)) {
    const auto byte = static_cast<unsigned char>(c);
    text += digits[byte >> 4];
    text += digits[byte & 0xF];
  }
  return text + "' AS TEXT)";
}

}  // namespace

std::string inAscii(const Statement& statement) {
  if (isAscii(statement.text)) return std::string(statement.text);
  std::string text;
  const char* copied = statement.text.data();
  for (const Token& token : statement.tokens) {
    if (token.kind != TokenKind::text || !token.isClosed || isAscii(token.text)) continue;
    text.append(copied, token.text.data()).append(asBytes(token.text));
    copied = token.text.data() + token.text.size();
  }
  return text.append(copied, statement.text.data() + statement.text.size());
}

}  // namespace vexnumkr::qtsql
