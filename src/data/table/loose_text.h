// Texts that a database may take for the same.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace vexnumkr {

/// What is left of `text` without all that the columns of a database may leave out of account when
/// they compare it: case, accents, blanks at its end, and whether a letter is written as several
/// ("ß" and "ss", "ä" and "ae", "å" and "aa"). Texts that a column takes for the same have the same
/// loose text; the other way round, the database has to be asked. Nothing for texts with characters
/// that columns take for others by rules of their own, as ligatures and the digits of other
/// scripts: any other text may be the same.
std::optional<std::string> looseText(std::string_view text);

/// Names, found by what they are exactly and by what they are loosely. Numbered from 0 in the order
/// in which they came.
class LooseNames {
 public:
  using Number = std::uint32_t;
  static constexpr Number none = 0xFFFFFFFF;

  /// The number of `name`, which is added when it is new.
  Number add(std::string_view name);
  Number find(std::string_view name) const;
  std::size_t size() const { return numbers_.size(); }
  /// Those that may be the same as `name` for a column.
  std::span<const Number> similar(std::string_view name) const;
  /// Whether another name may be the same as that one.
  bool hasSimilar(Number name) const { return looseOf_[name]->size() > 1; }

 private:
  struct Hash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const {
      return std::hash<std::string_view>()(text);
    }
  };
  template <class Entry>
  using ByName = std::unordered_map<std::string, Entry, Hash, std::equal_to<>>;

  ByName<Number> numbers_;
  ByName<std::vector<Number>> loose_;  // each with those without a loose text
  std::vector<Number> withoutLoose_;
  std::vector<Number> all_;
  std::vector<const std::vector<Number>*> looseOf_;  // entries of a map stay where they are
};

}  // namespace vexnumkr
