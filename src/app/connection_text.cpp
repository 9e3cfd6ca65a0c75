#include "app/connection_text.h"

#include <algorithm>

#include <vexnumkr/value.h>

namespace vexnumkr::host {

namespace {

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool sameKey(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return lower(x) == lower(y); });
}

/// Where the pair that begins at `start` ends: at the next semicolon outside a quoted value.
std::size_t endOfPair(std::string_view text, std::size_t start) {
  const std::size_t semicolon = std::min(text.find(';', start), text.size());
  const std::size_t value = text.find_first_not_of(' ', text.find('=', start) + 1);
  if (value >= semicolon || text[value] != '"') return semicolon;
  bool quoted = true;
  for (std::size_t at = value + 1; at < text.size(); ++at) {
    if (text[at] == '"') quoted = !quoted;
    if (text[at] == ';' && !quoted) return at;
  }
  return text.size();
}

std::string unquoted(std::string_view value) {
  if (value.size() < 2 || value.front() != '"' || value.back() != '"') return std::string(value);
  std::string result;
  for (std::size_t at = 1; at + 1 < value.size(); ++at) {
    result += value[at];
    if (value[at] == '"') ++at;
  }
  return result;
}

std::string quotedWhereNeeded(const std::string& value) {
  const bool plain =
      value.find_first_of(";\"") == std::string::npos && trimBlanks(value).size() == value.size();
  if (plain) return value;
  std::string result = "\"";
  for (const char c : value) result += c == '"' ? std::string("\"\"") : std::string(1, c);
  return result + "\"";
}

}  // namespace

ConnectionText::ConnectionText(std::string_view text) {
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = endOfPair(text, start);
    const std::string_view pair = text.substr(start, end - start);
    const std::size_t equals = pair.find('=');
    if (equals != std::string_view::npos) {
      pairs_.emplace_back(trimBlanks(pair.substr(0, equals)),
                          unquoted(trimBlanks(pair.substr(equals + 1))));
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
  const ConnectionText odbc(outer.value("Database"));
  for (const ConnectionText* text : {&outer, &odbc}) {
    for (const char* const key : {"PWD", "Password"}) {
      std::string password = text->value(key);
      if (password.starts_with('{') && password.ends_with('}') && text == &odbc)
        password = password.substr(1, password.size() - 2);
      if (password.empty()) continue;
      if (const std::string quoted = quotedWhereNeeded(password); quoted != password)
        found.push_back(quoted);
      found.push_back(password);
    }
  }
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

}  // namespace vexnumkr::host
