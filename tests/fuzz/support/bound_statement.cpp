#include "fuzz/support/bound_statement.h"

namespace vexnumkr::fuzz {
namespace {

// No statement of the project has such a text.
std::string markOf(std::size_t number) { return "<value " + std::to_string(number) + ">"; }

}  // namespace

std::string Binding::mark(std::string_view value) {
  values_.emplace_back(value);
  return markOf(values_.size());
}

BoundStatement Binding::bind(std::string statement) const {
  for (std::size_t number = 1; number <= values_.size(); ++number) {
    const std::string literal = "'" + markOf(number) + "'";
    const std::string place = "?" + std::to_string(number);
    for (std::size_t at = statement.find(literal); at != std::string::npos;
         at = statement.find(literal, at + place.size()))
      statement.replace(at, literal.size(), place);
  }
  return {std::move(statement), values_};
}

}  // namespace vexnumkr::fuzz
