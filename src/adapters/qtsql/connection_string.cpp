#include "adapters/qtsql/connection_string.h"

#include <algorithm>
#include <array>
#include <charconv>

#include <vexnumkr/value.h>

#include "adapters/qtsql/failure.h"
#include "platform/ascii_case.h"

namespace vexnumkr::qtsql {
namespace {

constexpr std::array<std::string_view, 7> keyNames = {"Driver", "Database", "Server", "Port",
                                                      "UID",    "PWD",      "Options"};
constexpr std::size_t driverKey = 0;
constexpr std::size_t databaseKey = 1;
constexpr std::size_t portKey = 3;

Error malformed(const std::string& what) {
  return failure(failure_number::invalidArgument, "Verbindungszeichenfolge: " + what);
}

// Reads the pairs of a connection string one after the other: next, key, value and again.
class PairReader {
 public:
  explicit PairReader(std::string_view text) : rest_(text) {}

  // Moves to the next pair that is not empty; false at the end.
  bool next() {
    skip(std::min(rest_.find_first_not_of("; "), rest_.size()));
    ++number_;
    return !rest_.empty();
  }

  // The key's position in keyNames.
  std::size_t key() {
    const std::size_t equals = rest_.find('=');
    if (equals > rest_.find(';') || equals == std::string_view::npos)
      throw malformed("In Eintrag " + std::to_string(number_) + " fehlt das Gleichheitszeichen.");
    const std::string_view name = trimBlanks(rest_.substr(0, equals));
    skip(equals + 1);
    const auto found = std::find_if(keyNames.begin(), keyNames.end(), [&](std::string_view known) {
      return equalsWithoutCase(name, known);
    });
    if (found == keyNames.end())
      throw malformed("Eintrag " + std::to_string(number_) +
                      " hat einen unbekannten Schlüssel; erlaubt sind Driver, Database, Server, "
                      "Port, UID, PWD und Options.");
    return static_cast<std::size_t>(found - keyNames.begin());
  }

  std::string value(std::size_t key) {
    skip(std::min(rest_.find_first_not_of(' '), rest_.size()));
    if (rest_.starts_with('"')) return quotedValue(keyNames[key]);
    const std::size_t end = std::min(rest_.find(';'), rest_.size());
    const std::string_view found = trimBlanks(rest_.substr(0, end));
    skip(end);
    return std::string(found);
  }

 private:
  std::string quotedValue(std::string_view key) {
    std::string found;
    skip(1);
    for (;;) {
      const std::size_t quote = rest_.find('"');
      if (quote == std::string_view::npos)
        throw malformed("Der Wert von " + std::string(key) +
                        " hat kein schließendes Anführungszeichen.");
      found += rest_.substr(0, quote);
      skip(quote + 1);
      if (!rest_.starts_with('"')) break;
      found += '"';
      skip(1);
    }
    if (!trimBlanks(rest_.substr(0, rest_.find(';'))).empty())
      throw malformed("Hinter dem schließenden Anführungszeichen von " + std::string(key) +
                      " steht weiterer Text.");
    skip(std::min(rest_.find(';'), rest_.size()));
    return found;
  }

  void skip(std::size_t count) { rest_.remove_prefix(count); }

  std::string_view rest_;
  int number_ = 0;
};

std::uint16_t parsePort(std::string_view text) {
  std::uint16_t port = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), port);
  if (error != std::errc() || end != text.data() + text.size() || port == 0)
    throw malformed("Port muss eine Zahl von 1 bis 65535 sein.");
  return port;
}

bool needsQuotes(std::string_view value) {
  return value.find_first_of(";\"") != std::string_view::npos || trimBlanks(value) != value;
}

std::string quoted(std::string_view value) {
  std::string text = "\"";
  for (const char c : value) text.append(c == '"' ? 2 : 1, c);
  return text + '"';
}

}  // namespace

ConnectionSettings parseConnectionString(std::string_view text) {
  if (text.find('\0') != std::string_view::npos) throw malformed("Nullzeichen sind nicht erlaubt.");
  ConnectionSettings settings;
  std::string port;
  const std::array<std::string*, keyNames.size()> values = {
      &settings.driver, &settings.database, &settings.server, &port,
      &settings.user,   &settings.password, &settings.options};
  std::array<bool, keyNames.size()> seen{};
  for (PairReader reader(text); reader.next();) {
    const std::size_t key = reader.key();
    if (seen[key])
      throw malformed("Der Schlüssel " + std::string(keyNames[key]) + " kommt mehrmals vor.");
    seen[key] = true;
    *values[key] = reader.value(key);
  }
  for (const std::size_t required : {driverKey, databaseKey})
    if (values[required]->empty())
      throw malformed("Der Schlüssel " + std::string(keyNames[required]) + " fehlt.");
  if (seen[portKey]) settings.port = parsePort(port);
  return settings;
}

std::string composeConnectionString(const ConnectionSettings& settings) {
  const std::string port = settings.port == 0 ? std::string() : std::to_string(settings.port);
  const std::array<const std::string*, keyNames.size()> values = {
      &settings.driver, &settings.database, &settings.server, &port,
      &settings.user,   &settings.password, &settings.options};
  std::string text;
  for (std::size_t key = 0; key < keyNames.size(); ++key) {
    const std::string& value = *values[key];
    if (value.empty()) continue;
    if (!text.empty()) text += ';';
    text.append(keyNames[key]).append("=").append(needsQuotes(value) ? quoted(value) : value);
  }
  return text;
}

}  // namespace vexnumkr::qtsql
