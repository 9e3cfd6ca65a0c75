// Connection strings: reading and composing them, and passwords in them, which nobody gets to see.
#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include <vexnumkr/connection_string.h>
#include <vexnumkr/error.h>
#include <vexnumkr/value.h>

#include "fuzz/support/input.h"
#include "fuzz/support/property.h"
#include "platform/ascii_case.h"
#include "platform/connection_entries.h"

namespace vexnumkr::fuzz {
namespace {

// Passwords alone have these letters, so that a piece of one can be told wherever it stands.
constexpr std::string_view secretLetters = "JKQVXYZ";

bool isSecret(char c) { return secretLetters.find(c) != std::string_view::npos; }

// Three letters in a row.
bool showsPiece(std::string_view text) {
  std::size_t run = 0;
  return std::any_of(text.begin(), text.end(), [&run](char c) {
    run = isSecret(c) ? run + 1 : 0;
    return run == 3;
  });
}

std::string openText(Input& input) { return inLowerCase(input.text()); }

// Capitals are secret, the rest stands as it is: a password may look like anything.
std::string secretText(Input& input) {
  std::string text = input.text();
  for (char& c : text)
    if (c >= 'A' && c <= 'Z') c = secretLetters[static_cast<std::size_t>(c) % secretLetters.size()];
  return text;
}

std::string enclosed(std::string_view value, char begin, char end) {
  std::string text(1, begin);
  for (const char c : value) text.append(c == end ? 2 : 1, c);
  return text + end;
}

void checkRanges(const std::string& text) {
  std::size_t at = 0;
  std::string masked;
  for (const TextRange& range : passwordRanges(text)) {
    require(at <= range.begin && range.begin < range.end && range.end <= text.size(),
            "passwords stand in the text, one behind the other", {text});
    masked.append(text, at, range.begin - at).append("***");
    at = range.end;
  }
  require(maskedConnectionString(text) == masked + text.substr(at), "only passwords are masked",
          {text});
}

void checkPairs(const std::string& text) {
  for (const ConnectionSyntax syntax :
       {ConnectionSyntax::native, ConnectionSyntax::odbc, ConnectionSyntax::oleDb}) {
    std::size_t at = 0;
    for (const ConnectionPair& pair : connectionPairs(text, syntax)) {
      require(at <= pair.begin && pair.begin <= pair.end && pair.end <= text.size(),
              "values stand in the text, one behind the other", {text});
      at = pair.end;
    }
  }
}

// What parses means what it says, and what does not is refused without showing a password.
void checkParsing(const std::string& text, bool mayShow) {
  try {
    const ConnectionSettings settings = parseConnectionString(text);
    require(parseConnectionString(composeConnectionString(settings)) == settings,
            "what is read can be composed and read again", {text});
    require(connectionValue(text, "pwd") == settings.password, "both readers agree", {text});
  } catch (const Error& error) {
    require(error.number() == error_number::invalidArgument, "a text is refused as such", {text});
    require(mayShow || !showsPiece(error.description()), "a refusal shows no password",
            {text, error.description()});
  }
}

void attackText(const std::string& text) {
  checkRanges(text);
  checkPairs(text);
  checkParsing(text, true);
  const std::string shown = withoutPasswords(text, text);
  require(withoutPasswords(text, "") == text, "without a password nothing is masked", {text});
  for (const ConnectionPair& pair : connectionPairs(text))
    if (equalsWithoutCase(pair.key, "pwd") && pair.value.size() > 8)
      require(
          pair.value.find('*') != std::string::npos || shown.find(pair.value) == std::string::npos,
          "a password is masked wherever it stands", {text, shown});
}

// What somebody may say of a password: all of it, its marks, one of its words.
std::vector<std::string> formsOf(const std::string& password) {
  std::vector<std::string> forms = {password, enclosed(password, '"', '"'),
                                    enclosed(password, '{', '}')};
  for (std::size_t at = 0; at < password.size();) {
    const std::size_t end = std::min(password.find_first_of(" =", at), password.size());
    forms.push_back(password.substr(at, end - at));
    at = end + 1;
  }
  return forms;
}

void checkHidden(const std::string& connection, const std::string& password,
                 const std::string& message) {
  checkRanges(connection);
  const std::string masked = maskedConnectionString(connection);
  require(!showsPiece(masked), "a string as it is shown has no password", {connection, masked});
  // Between the forms stands what no password has, so that none runs on into the next.
  constexpr char border = '\x01';
  if (connection.find(border) != std::string::npos) return;
  std::string all = message + border + connection;
  for (const std::string& form : formsOf(password)) all += border + form;
  const std::string shown = withoutPasswords(all + border + message, connection);
  require(!showsPiece(shown), "a message has no password", {connection, all, shown});
}

ConnectionSettings settingsOf(Input& input) {
  ConnectionSettings settings;
  for (std::string* const text :
       {&settings.driver, &settings.database, &settings.server, &settings.user, &settings.options})
    *text = openText(input);
  settings.port = static_cast<std::uint16_t>(input.number());
  return settings;
}

// A server's text may end like one with a port that is none.
bool namesServers(const ConnectionSettings& settings) {
  try {
    return !serverAddresses(settings).empty();
  } catch (const Error&) {
    return false;
  }
}

void attackComposed(Input& input) {
  ConnectionSettings settings = settingsOf(input);
  settings.password = secretText(input);
  const std::string connection = composeConnectionString(settings);
  const bool isWhole = !settings.driver.empty() && !settings.database.empty() &&
                       connection.find('\0') == std::string::npos && namesServers(settings);
  if (isWhole)
    require(parseConnectionString(connection) == settings, "what is composed can be read",
            {connection});
  checkParsing(connection, false);
  checkHidden(connection, settings.password, openText(input));
}

// The value of a password inside another value, as its driver reads it.
void attackInside(Input& input) {
  ConnectionSettings settings = settingsOf(input);
  const std::string password = secretText(input);
  settings.driver = "QODBC";
  const std::string pair = "dsn=x;pwd=" + enclosed(password, '{', '}') + ";uid=u";
  (input.flag() ? settings.options : settings.database) = pair;
  checkHidden(composeConnectionString(settings), password, openText(input));
}

void attackOleDb(Input& input) {
  const std::string password = secretText(input);
  const bool isSingle = input.flag();
  const std::string value = enclosed(password, isSingle ? '\'' : '"', isSingle ? '\'' : '"');
  const std::string tail = ";user id=u;" + openText(input);
  checkHidden("provider=x;database password=" + value + tail, password, openText(input));
  const std::string inner = "driver={x};pwd=" + enclosed(password, '{', '}') + ";uid=u";
  checkHidden("provider=msdasql;extended properties=" + enclosed(inner, '"', '"') + tail, password,
              openText(input));
}

// Where one begins that nothing tells from the pair that follows a password.
bool holdsPair(std::string_view password) {
  for (std::size_t at = password.find(';'); at < password.size(); at = password.find(';', at)) {
    const std::size_t begin = std::min(password.find_first_not_of("; ", at), password.size());
    const std::size_t sign = password.find('=', begin);
    if (sign == std::string_view::npos) return false;
    const std::string_view key = trimBlanks(password.substr(begin, sign - begin));
    if (std::any_of(nativeKeys.begin(), nativeKeys.end(),
                    [key](std::string_view name) { return equalsWithoutCase(key, name); }))
      return true;
    ++at;
  }
  return false;
}

// Written by somebody who has not heard of quotes.
void attackUnquoted(Input& input) {
  const std::string password = secretText(input);
  if (holdsPair(password)) return;
  const std::string connection = "driver=x;database=y;pwd=" + password + ";uid=u";
  checkParsing(connection, false);
  checkRanges(connection);
  require(!showsPiece(maskedConnectionString(connection)), "a string shows no password",
          {connection, maskedConnectionString(connection)});
  const std::string shown = withoutPasswords(openText(input) + connection, connection);
  require(!showsPiece(shown), "a message shows no password", {connection, shown});
}

}  // namespace
}  // namespace vexnumkr::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace vexnumkr::fuzz;
  Input input(data, size);
  switch (input.choice(5)) {
    case 0:
      attackText(input.rest());
      break;
    case 1:
      attackComposed(input);
      break;
    case 2:
      attackInside(input);
      break;
    case 3:
      attackOleDb(input);
      break;
    default:
      attackUnquoted(input);
  }
  return 0;
}
