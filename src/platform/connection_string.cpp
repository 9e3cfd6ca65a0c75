#include <algorithm>
#include <array>
#include <charconv>
#include <optional>

#include <vexnumkr/connection_string.h>
#include <vexnumkr/error.h>
#include <vexnumkr/value.h>

#include "platform/ascii_case.h"
#include "platform/connection_entries.h"

namespace vexnumkr {
namespace {

constexpr std::size_t driverKey = 0;
constexpr std::size_t databaseKey = 1;

Error malformed(const std::string& what) {
  return Error(error_number::invalidArgument, "VEXNummernkreise",
               "Verbindungszeichenfolge: " + what);
}

// The values in the order of nativeKeys; a port is a text here.
using Values = std::array<std::optional<std::string>, nativeKeys.size()>;

std::size_t positionOf(std::string_view key) {
  const auto found =
      std::find_if(nativeKeys.begin(), nativeKeys.end(),
                   [&](std::string_view known) { return equalsWithoutCase(key, known); });
  return static_cast<std::size_t>(found - nativeKeys.begin());
}

// Entries are told by their number: their text may be part of a password that lacks its quotes.
std::size_t requireKey(const ConnectionEntry& entry, std::size_t number) {
  if (!entry.hasSign)
    throw malformed("In Eintrag " + std::to_string(number) + " fehlt das Gleichheitszeichen.");
  const std::size_t key = positionOf(entry.key);
  if (key == nativeKeys.size())
    throw malformed("Eintrag " + std::to_string(number) +
                    " hat einen unbekannten Schlüssel; erlaubt sind Driver, Database, Server, "
                    "Port, UID, PWD und Options.");
  return key;
}

void requireWhole(const ConnectionEntry& entry, const std::string& key) {
  if (!entry.isClosed)
    throw malformed("Der Wert von " + key + " hat kein schließendes Anführungszeichen.");
  if (entry.hasMore)
    throw malformed("Hinter dem schließenden Anführungszeichen von " + key +
                    " steht weiterer Text.");
}

Values readValues(std::string_view text) {
  Values values;
  ConnectionEntries entries(text, ConnectionSyntax::native);
  ConnectionEntry entry;
  for (std::size_t number = 1; entries.next(entry); ++number) {
    const std::size_t key = requireKey(entry, number);
    const std::string name(nativeKeys[key]);
    if (values[key]) throw malformed("Der Schlüssel " + name + " kommt mehrmals vor.");
    requireWhole(entry, name);
    values[key] = std::move(entry.value);
  }
  return values;
}

std::optional<std::uint16_t> portIn(std::string_view text) {
  std::uint16_t port = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, port);
  if (error != std::errc() || stop != end || port == 0) return std::nullopt;
  return port;
}

std::uint16_t parsePort(const std::string& text) {
  if (const auto port = portIn(text)) return *port;
  throw malformed("Port muss eine Zahl von 1 bis 65535 sein.");
}

// Where the colon before a server's port stands; npos where there is none.
std::size_t portColon(std::string_view server) {
  const std::size_t colon = server.rfind(':');
  if (server.starts_with('/') || colon == std::string_view::npos) return std::string_view::npos;
  const bool isInBrackets = server.starts_with('[') && server[colon - 1] == ']';
  return isInBrackets || server.find(':') == colon ? colon : std::string_view::npos;
}

ServerAddress parseServer(std::string_view text, std::uint16_t commonPort) {
  const std::size_t colon = portColon(text);
  std::string_view name = text.substr(0, colon);
  if (name.starts_with('[') && name.ends_with(']')) name = name.substr(1, name.size() - 2);
  if (colon == std::string_view::npos) return {std::string(name), commonPort};
  const auto port = portIn(text.substr(colon + 1));
  if (!port) throw malformed("Der Port eines Servers muss eine Zahl von 1 bis 65535 sein.");
  return {std::string(name), *port};
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

std::vector<ConnectionPair> connectionPairs(std::string_view text, ConnectionSyntax syntax) {
  std::vector<ConnectionPair> pairs;
  ConnectionEntries entries(text, syntax);
  for (ConnectionEntry entry; entries.next(entry);)
    if (entry.hasSign)
      pairs.push_back({std::string(entry.key), std::move(entry.value), entry.begin, entry.end});
  return pairs;
}

std::string connectionValue(std::string_view text, std::string_view key, ConnectionSyntax syntax) {
  for (ConnectionPair& pair : connectionPairs(text, syntax))
    if (equalsWithoutCase(pair.key, key)) return std::move(pair.value);
  return {};
}

ConnectionSettings parseConnectionString(std::string_view text) {
  if (text.find('\0') != std::string_view::npos) throw malformed("Nullzeichen sind nicht erlaubt.");
  const Values values = readValues(text);
  for (const std::size_t required : {driverKey, databaseKey})
    if (values[required].value_or("").empty())
      throw malformed("Der Schlüssel " + std::string(nativeKeys[required]) + " fehlt.");
  const auto& [driver, database, server, port, user, password, options] = values;
  ConnectionSettings settings{.driver = *driver,
                              .database = *database,
                              .server = server.value_or(""),
                              .port = port ? parsePort(*port) : std::uint16_t{0},
                              .user = user.value_or(""),
                              .password = password.value_or(""),
                              .options = options.value_or("")};
  static_cast<void>(serverAddresses(settings));
  return settings;
}

std::vector<ServerAddress> serverAddresses(const ConnectionSettings& settings) {
  std::vector<ServerAddress> addresses;
  const bool areSeveral = settings.server.find(',') != std::string::npos;
  for (std::size_t at = 0; at <= settings.server.size();) {
    const std::size_t comma = std::min(settings.server.find(',', at), settings.server.size());
    const std::string_view one = std::string_view(settings.server).substr(at, comma - at);
    addresses.push_back(parseServer(areSeveral ? trimBlanks(one) : one, settings.port));
    if (areSeveral && addresses.back().server.empty())
      throw malformed("In der Aufzählung der Server fehlt ein Name.");
    at = comma + 1;
  }
  return addresses;
}

std::string composeConnectionString(const ConnectionSettings& settings) {
  const std::string port = settings.port == 0 ? std::string() : std::to_string(settings.port);
  const std::array<const std::string*, nativeKeys.size()> values = {
      &settings.driver, &settings.database, &settings.server, &port,
      &settings.user,   &settings.password, &settings.options};
  std::string text;
  for (std::size_t key = 0; key < nativeKeys.size(); ++key) {
    const std::string& value = *values[key];
    if (value.empty()) continue;
    if (!text.empty()) text += ';';
    text.append(nativeKeys[key]).append("=").append(needsQuotes(value) ? quoted(value) : value);
  }
  return text;
}

std::string sqliteConnectionString(const std::string& file) {
  return composeConnectionString({.driver = "QSQLITE", .database = file});
}

}  // namespace vexnumkr
