#include "data/table/text_pool.h"

namespace vexnumkr {

TextPool::TextPool() { add(""); }

TextId TextPool::add(std::string_view text) {
  if (const auto known = find(text)) return *known;
  const auto id = static_cast<TextId>(texts_.size());
  texts_.emplace_back(text);
  ids_.emplace(texts_.back(), id);
  return id;
}

std::optional<TextId> TextPool::find(std::string_view text) const {
  const auto found = ids_.find(text);
  if (found == ids_.end()) return std::nullopt;
  return found->second;
}

}  // namespace vexnumkr
