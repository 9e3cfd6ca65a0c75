// What a statement is apart from the values in it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/sql_tokens.h"

namespace vexnumkr {

/// Knows the shapes of the component's own statements: their tokens with the literals taken out.
///
/// Values stand in the statements as they are, so a quote in one ends its literal, and the rest of
/// the value would be read as SQL. A statement that a value has given another shape is none of
/// ours.
class StatementShapes {
 public:
  StatementShapes();
  StatementShapes(const StatementShapes&) = delete;
  StatementShapes& operator=(const StatementShapes&) = delete;

  /// Whether `text` is one of the component's statements, whatever the values in it. A single
  /// statement whose last literal is not closed counts as one: no engine executes it, and the
  /// engine's own message says best what is wrong.
  bool isOwn(std::string_view text);

 private:
  using Shape = std::vector<Token>;

  std::vector<std::string> texts_;  // what the tokens of the shapes point into
  std::vector<Shape> shapes_;
  std::vector<Token> tokens_;  // of the text at hand; kept for its memory
};

}  // namespace vexnumkr
