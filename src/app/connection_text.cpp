#include "app/connection_text.h"

#include <algorithm>

#include <vexnumkr/value.h>

namespace vexnumkr::app {

namespace {

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool sameKey(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return lower(x) == lower(y); });
}

/// The mark that closes a value which begins with `first`; 0 where nothing encloses it.
char closingMark(char first, Enclosing enclosing) {
  if (first == '"') return '"';
  return first == '{' && enclosing == Enclosing::braces ? '}' : '\0';
}

/// Where the pair that begins at `start` ends: at the next semicolon outside an enclosed value.
std::size_t endOfPair(std::string_view text, std::size_t start, Enclosing enclosing) {
  const std::size_t semicolon = std::min(text.find(';', start), text.size());
  const std::size_t value = text.find_first_not_of(' ', text.find('=', start) + 1);
  if (value >= semicolon) return semicolon;
  const char closing = closingMark(text[value], enclosing);
  if (closing == '\0') return semicolon;
  bool inside = true;
  for (std::size_t at = value + 1; at < text.size(); ++at) {
    if (text[at] == closing) inside = !inside;
    if (text[at] == ';' && !inside) return at;
  }
  // A brace that nothing closes is a character like any other.
  return closing == '}' && inside ? semicolon : text.size();
}

std::string withoutEnclosing(std::string_view value, Enclosing enclosing) {
  const char closing = value.size() < 2 ? '\0' : closingMark(value.front(), enclosing);
  if (closing == '\0' || value.back() != closing) return std::string(value);
  std::string result;
  for (std::size_t at = 1; at + 1 < value.size(); ++at) {
    result += value[at];
    if (value[at] == closing) ++at;
  }
  return result;
}

std::string doubled(const std::string& value, char mark) {
  std::string result;
  for (const char c : value) result.append(c == mark ? 2 : 1, c);
  return result;
}

std::string quotedWhereNeeded(const std::string& value) {
  const bool plain =
      value.find_first_of(";\"") == std::string::npos && trimBlanks(value).size() == value.size();
  if (plain) return value;
  return '"' + doubled(value, '"') + '"';
}

/// The passwords of `text` in each form in which they may stand in it and in what quotes it.
void collectPasswords(const ConnectionText& text, std::vector<std::string>& found) {
  for (const char* const key : {"PWD", "Password"}) {
    const std::string password = text.value(key);
    if (password.empty()) continue;
    const std::string inBraces = '{' + doubled(password, '}') + '}';
    for (const std::string& form :
         {password, quotedWhereNeeded(password), inBraces, doubled(password, '}')}) {
      found.push_back(form);
      found.push_back(doubled(form, '"'));
    }
  }
}

}  // namespace

ConnectionText::ConnectionText(std::string_view text, Enclosing enclosing) {
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = endOfPair(text, start, enclosing);
    const std::string_view pair = text.substr(start, end - start);
    const std::size_t equals = pair.find('=');
    if (equals != std::string_view::npos) {
      pairs_.emplace_back(trimBlanks(pair.substr(0, equals)),
                          withoutEnclosing(trimBlanks(pair.substr(equals + 1)), enclosing));
    }
    start = end + 1;
  }
}

std::string ConnectionText::value(std::string_view key) const {
  const auto found = std::find_if(pairs_.begin(), pairs_.end(),
                                  [&](const auto& pair) { return sameKey(pair.first, key); });
  return found == pairs_.end() ? std::string() : found->second;
}

void ConnectionText::set(std::string_view key, const std::string& value) {
  const auto found = std::find_if(pairs_.begin(), pairs_.end(),
                                  [&](const auto& pair) { return sameKey(pair.first, key); });
  if (found == pairs_.end()) {
    pairs_.emplace_back(key, value);
  } else {
    found->second = value;
  }
}

std::string ConnectionText::text() const {
  std::string result;
  for (const auto& [key, value] : pairs_) {
    if (!result.empty()) result += ';';
    result += key + '=' + quotedWhereNeeded(value);
  }
  return result;
}

std::string sqliteConnectionText(const std::string& file) {
  ConnectionText connection("Driver=QSQLITE");
  connection.set("Database", file);
  return connection.text();
}

std::vector<std::string> passwordsIn(std::string_view connectionText) {
  std::vector<std::string> found;
  const ConnectionText outer(connectionText);
  collectPasswords(outer, found);
  // Whoever leaves out the quotes around an ODBC connection string means its braces nevertheless.
  for (const std::string& text :
       {std::string(connectionText), outer.value("Database"), outer.value("Options")})
    collectPasswords(ConnectionText(text, Enclosing::braces), found);
  std::sort(found.begin(), found.end(), [](const std::string& a, const std::string& b) {
    return a.size() != b.size() ? a.size() > b.size() : a < b;
  });
  found.erase(std::unique(found.begin(), found.end()), found.end());
  return found;
}

std::string withoutPassword(std::string message, std::string_view connectionText) {
  const std::string mask = "***";
  for (const std::string& password : passwordsIn(connectionText)) {
    for (auto at = message.find(password); at != std::string::npos;
         at = message.find(password, at + mask.size()))
      message.replace(at, password.size(), mask);
  }
  return message;
}

}  // namespace vexnumkr::app
