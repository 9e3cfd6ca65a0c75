// Statements whose texts are bound, as the yardstick for those in which they are written out.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vexnumkr::fuzz {

/// A statement with places ?1, ?2 and so on, and the texts for them.
struct BoundStatement {
  std::string text;
  std::vector<std::string> values;
};

/// Turns whatever writes texts between quotes into one that binds them.
class Binding {
 public:
  /// What stands for `value` in the statement to be made.
  std::string mark(std::string_view value);
  /// That statement with a place for each mark between quotes. REQUIRES: all texts are marks.
  BoundStatement bind(std::string statement) const;

 private:
  std::vector<std::string> values_;
};

}  // namespace vexnumkr::fuzz
