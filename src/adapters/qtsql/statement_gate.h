// The one place that every statement text of the adapter's users passes on its way to the engine.
#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "platform/sql_tokens.h"

namespace vexnumkr::qtsql {

/// One statement, without what stood before and behind it. It points into the text that was passed
/// and into the gate, and is good until the next text passes.
struct Statement {
  std::string_view text;
  std::span<const Token> tokens;

  /// Whether it is a select, which changes nothing.
  bool isSelect() const;
  /// Whether it inserts, updates or deletes rows, so that the engine's count of changes is its own.
  bool changesRows() const;
};

/// Lets exactly one statement through. Whatever else is to be demanded of statements belongs here.
class StatementGate {
 public:
  /// The statement in `text`; semicolons, blanks and comments before and behind it do not count.
  /// Errors (3001): no statement, more than one, or a zero character, at which an engine would stop
  /// reading.
  Statement pass(std::string_view text);

 private:
  std::vector<Token> tokens_;
};

}  // namespace vexnumkr::qtsql
