#include "data/table/text_pool.h"

namespace vexnumkr {

const std::string& Text::str() const {
  static const std::string nothing;
  return entry_ == nullptr ? nothing : entry_->text;
}

Text TextPool::add(std::string_view text) {
  if (text.empty()) return {};
  if (const PooledText* known = find(text)) return Text(*known);
  const auto id = static_cast<std::uint32_t>(texts_.size() + 1);
  const PooledText& entry = texts_.emplace_back(PooledText{std::string(text), id});
  entries_.emplace(entry.text, &entry);
  return Text(entry);
}

const PooledText* TextPool::find(std::string_view text) const {
  const auto found = entries_.find(text);
  return found == entries_.end() ? nullptr : found->second;
}

}  // namespace vexnumkr
