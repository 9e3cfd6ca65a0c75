#include "platform/connection_entries.h"

#include <algorithm>

#include <vexnumkr/value.h>

namespace vexnumkr {

std::size_t ConnectionEntries::skip(std::string_view characters, std::size_t from) const {
  return std::min(text_.find_first_not_of(characters, from), text_.size());
}

std::size_t ConnectionEntries::find(char c, std::size_t from) const {
  return std::min(text_.find(c, from), text_.size());
}

bool ConnectionEntries::next(ConnectionEntry& entry) {
  at_ = skip("; ", at_);
  if (at_ == text_.size()) return false;
  entry = {};
  const std::size_t end = find(';', at_);
  const std::size_t sign = find('=', at_);
  entry.hasSign = sign < end;
  entry.key = trimBlanks(text_.substr(at_, (entry.hasSign ? sign : end) - at_));
  if (entry.hasSign) {
    at_ = skip(" ", sign + 1);
    readValue(entry);
  } else {
    entry.begin = at_;
    entry.end = at_ + entry.key.size();
    at_ = end;
  }
  return true;
}

// 0 where no enclosed value begins.
char ConnectionEntries::closingMark(std::size_t at) const {
  const char c = at < text_.size() ? text_[at] : '\0';
  if (c == '"') return '"';
  if (c == '{' && syntax_ != ConnectionSyntax::native) return '}';
  if (c == '\'' && syntax_ == ConnectionSyntax::oleDb) return '\'';
  return '\0';
}

void ConnectionEntries::readValue(ConnectionEntry& entry) {
  const char closing = closingMark(at_);
  if (closing == '\0' || !readEnclosed(entry, closing)) readPlain(entry);
}

// False, and nothing read, where what begins here is not enclosed after all.
bool ConnectionEntries::readEnclosed(ConnectionEntry& entry, char closing) {
  std::size_t i = at_ + 1;
  for (; i < text_.size(); ++i) {
    if (text_[i] == closing) {
      if (i + 1 == text_.size() || text_[i + 1] != closing) break;
      ++i;
    }
    entry.value += text_[i];
    entry.places.push_back(i);
  }
  entry.isClosed = i < text_.size() || closing != '"';
  const std::size_t behind = std::min(i + 1, text_.size());
  entry.hasMore = i < text_.size() && skip(" ", behind) != find(';', behind);
  if (entry.hasMore || (i == text_.size() && entry.isClosed)) {
    entry.value.clear();
    entry.places.clear();
    return false;
  }
  entry.begin = at_;
  entry.end = behind;
  at_ = find(';', behind);
  return true;
}

void ConnectionEntries::readPlain(ConnectionEntry& entry) {
  const std::size_t end = find(';', at_);
  entry.value = trimBlanks(text_.substr(at_, end - at_));
  entry.begin = at_;
  entry.end = at_ + entry.value.size();
  for (std::size_t i = entry.begin; i < entry.end; ++i) entry.places.push_back(i);
  at_ = end;
}

}  // namespace vexnumkr
