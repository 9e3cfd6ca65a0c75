#include "adapters/qtsql/opening/driver_options.h"

#include <algorithm>
#include <array>
#include <span>

#include <vexnumkr/value.h>

#include "adapters/qtsql/opening/failure.h"

namespace vexnumkr::qtsql {
namespace {

using Names = std::span<const std::string_view>;

constexpr std::array<std::string_view, 10> odbcOptions = {
    "SQL_ATTR_ACCESS_MODE",     "SQL_ATTR_LOGIN_TIMEOUT",      "SQL_ATTR_CONNECTION_TIMEOUT",
    "SQL_ATTR_CURRENT_CATALOG", "SQL_ATTR_METADATA_ID",        "SQL_ATTR_PACKET_SIZE",
    "SQL_ATTR_TRACE",           "SQL_ATTR_CONNECTION_POOLING", "SQL_ATTR_CP_MATCH",
    "SQL_ATTR_ODBC_VERSION"};

Names namesOf(const Driver& driver) {
  return driver.isOdbc() ? Names(odbcOptions) : driver.own->options;
}

bool isKnown(std::string_view entry, Names names) {
  const std::string_view name = trimBlanks(entry.substr(0, entry.find('=')));
  return std::find(names.begin(), names.end(), name) != names.end();
}

// Calls `use` with each entry that is not blank.
template <class Use>
void forEachEntry(std::string_view options, Use&& use) {
  while (!options.empty()) {
    const std::size_t end = std::min(options.find(';'), options.size());
    if (const std::string_view entry = trimBlanks(options.substr(0, end)); !entry.empty())
      use(entry);
    options.remove_prefix(std::min(end + 1, options.size()));
  }
}

// Behind one pair of the form keyword=value or keyword='value', blanks at will; npos where none is.
std::size_t pairEnd(std::string_view text, std::size_t begin) {
  const std::size_t sign = text.find('=', begin);
  if (sign == std::string_view::npos) return sign;
  const std::string_view keyword = trimBlanks(text.substr(begin, sign - begin));
  if (keyword.empty() || keyword.find(' ') != std::string_view::npos) return std::string_view::npos;
  std::size_t at = text.find_first_not_of(' ', sign + 1);
  if (at == std::string_view::npos) return text.size();
  const bool isQuoted = text[at] == '\'';
  if (isQuoted) ++at;
  for (; at < text.size(); ++at) {
    if (text[at] == '\\')
      ++at;
    else if (text[at] == (isQuoted ? '\'' : ' '))
      return at + 1;
  }
  return isQuoted ? std::string_view::npos : text.size();
}

// As PostgreSQL's client library reads them, to which Qt hands them with blanks for semicolons.
bool areKeywordPairs(std::string_view options) {
  std::string text(options);
  std::replace(text.begin(), text.end(), ';', ' ');
  for (std::size_t at = text.find_first_not_of(' '); at != std::string::npos;
       at = text.find_first_not_of(' ', at)) {
    at = pairEnd(text, at);
    if (at == std::string::npos) return false;
  }
  return true;
}

}  // namespace

void requireKnownOptions(std::string_view options, const Driver& driver) {
  const Names names = namesOf(driver);
  if (names.empty()) {
    if (!areKeywordPairs(options))
      throw failure(error_number::invalidArgument,
                    "Verbindungszeichenfolge: Options besteht nicht aus Paaren der Form "
                    "Schlüssel=Wert; ein Wert mit Leerzeichen steht in einfachen Hochkommas.");
    return;
  }
  int number = 0;
  forEachEntry(options, [&](std::string_view entry) {
    ++number;
    if (!isKnown(entry, names))
      throw failure(error_number::invalidArgument,
                    "Verbindungszeichenfolge: Eintrag " + std::to_string(number) +
                        " von Options ist dem Treiber " + std::string(driver.name) + " unbekannt.");
  });
}

std::string withKnownOptions(std::string_view options, const Driver& driver) {
  const Names names = namesOf(driver);
  if (names.empty()) return std::string(options);
  std::string known;
  forEachEntry(options, [&](std::string_view entry) {
    if (isKnown(entry, names)) known.append(known.empty() ? "" : ";").append(entry);
  });
  return known;
}

}  // namespace vexnumkr::qtsql
