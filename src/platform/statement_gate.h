// The one place that every statement text of the adapter's users passes on its way to the engine.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "platform/sql_tokens.h"

namespace vexnumkr {

/// One statement, without what stood before and behind it. It points into the text that was passed
/// and into the gate, and is good until the next text passes.
struct Statement {
  std::string_view text;
  std::span<const Token> tokens;

  /// Whether it is a select, which changes nothing.
  bool isSelect() const;
  /// Whether it inserts, updates or deletes rows, so that the engine's count of changes is its own.
  bool changesRows() const;
  /// Whether it begins as a select does and asks for no locks, and so can be taken to leave
  /// everything as it is, in a transaction or outside of it.
  bool onlyReads() const;
  /// Whether it begins with that keyword.
  bool startsWith(std::string_view keyword) const { return tokens.front().is(keyword); }
};

/// Lets exactly one statement through. Whatever else is to be demanded of statements belongs here.
class StatementGate {
 public:
  /// The statement in `text`, as an engine with those rules reads it; semicolons, blanks and
  /// comments before and behind it do not count. Errors (3001): no statement, more than one, a zero
  /// character, at which an engine would stop reading, and comments that an engine may execute.
  Statement pass(std::string_view text, const LexicalRules& rules = {});

 private:
  std::vector<Token> tokens_;
};

}  // namespace vexnumkr
