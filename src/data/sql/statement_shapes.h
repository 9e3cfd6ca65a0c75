// What a statement is apart from the values in it.
#pragma once

#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "data/sql/set_statements.h"
#include "platform/sql_tokens.h"

namespace vexnumkr {

/// Knows the shapes of the component's own statements: their texts with the literals taken out, and
/// of those that hold several rows' values all but the first.
///
/// Values stand in the statements as they are, so a quote in one ends its literal, and the rest of
/// the value would be read as SQL. A statement that a value has given another shape is none of
/// ours. Outside the literals every character has to be the component's own, so that nothing can
/// hide in what an engine may or may not take for a comment.
class StatementShapes {
 public:
  StatementShapes();
  StatementShapes(const StatementShapes&) = delete;
  StatementShapes& operator=(const StatementShapes&) = delete;

  /// Whether `text` is one of the component's statements, whatever the values in it, for an engine
  /// that reads backslashes in texts as said. A value must not end its quotes and begin them again:
  /// two quotes in a row inside a text, which may be two values run into one, make it another
  /// statement, and so does a backslash where it has a meaning. A single statement whose last
  /// literal is not closed, in whatever way engines read it, counts as one: none executes it, and
  /// the engine's own message says best what is wrong.
  bool isOwn(std::string_view text, bool backslashEscapes = false);

 private:
  void takeApart(std::string_view text, bool backslashEscapes);
  /// What was taken apart, with a mark for each literal.
  const std::string& shapeOf(std::string_view text);
  /// That of a statement of many rows, as if it had one.
  std::string withoutRepetitions(std::string shape) const;
  bool isOfSets(const std::string& shape);

  std::unordered_set<std::string> shapes_;
  std::unordered_set<std::string> shapesOfSets_;  // Once needed: opening a dialog takes none.
  std::vector<statement::Repetition> repetitions_;
  std::vector<Token> tokens_;  // Of the text at hand; both are kept for their memory.
  std::string shape_;
};

}  // namespace vexnumkr
