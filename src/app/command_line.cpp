#include "app/command_line.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <map>
#include <set>
#include <string_view>

#include <vexnumkr/connection_string.h>

#include "app/connection_file.h"
#include "app/help.h"

namespace vexnumkr::app {
namespace {

using Values = std::map<std::string, std::string>;

const std::set<std::string>& optionsWithValue() {
  static const std::set<std::string> names = {
      "--connection", "--connection-file", "--application", "--user",
      "--date",       "--create-sample",   "--scale",       "--tour"};
  return names;
}

struct Arguments {
  bool help = false;
  bool version = false;
  bool dark = false;
  Values values;

  bool has(const std::string& name) const { return values.count(name) != 0; }
  std::string value(const std::string& name) const {
    const auto found = values.find(name);
    return found == values.end() ? std::string() : found->second;
  }
};

void add(Arguments& found, const std::string& name, const std::string& value) {
  if (value.empty()) throw UsageError("Die Option " + name + " braucht einen Wert.");
  if (!found.values.emplace(name, value).second)
    throw UsageError("Die Option " + name + " ist mehrmals angegeben.");
}

/// The sample is made in the database that is named anyway unless a file is named for it.
constexpr const char* inDatabase = "-";

bool mayLackValue(const std::string& name) { return name == "--create-sample"; }

/// Splits "--name=value" and "--name value" alike.
Arguments collect(const std::vector<std::string>& arguments) {
  Arguments found;
  for (std::size_t at = 0; at < arguments.size(); ++at) {
    const std::string& argument = arguments[at];
    const std::size_t equals = argument.find('=');
    const std::string name = argument.substr(0, equals);
    if (argument == "--help" || argument == "-h") {
      found.help = true;
    } else if (argument == "--version") {
      found.version = true;
    } else if (argument == "--dark") {
      found.dark = true;
    } else if (optionsWithValue().count(name) == 0) {
      throw UsageError("Unbekannte Angabe: " + name);
    } else if (equals != std::string::npos) {
      add(found, name, argument.substr(equals + 1));
    } else {
      const bool hasValue =
          at + 1 < arguments.size() && !(mayLackValue(name) && arguments[at + 1].starts_with("--"));
      const std::string missing = mayLackValue(name) ? inDatabase : "";
      add(found, name, hasValue ? arguments[++at] : missing);
    }
  }
  return found;
}

std::int32_t applicationCode(const Arguments& found) {
  const std::string text = found.value("--application");
  if (text.empty()) throw UsageError("Es fehlt die Option --application (1 oder 2).");
  if (text != "1" && text != "2")
    throw UsageError("--application muss 1 oder 2 sein, nicht \"" + text + "\".");
  return text == "1" ? 1 : 2;
}

// REQUIRES: digits, and no more than fit.
int number(std::string_view digits) {
  int result = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), result);
  return result;
}

bool isDate(const std::string& text) {
  if (text.size() != 8 || text.find_first_not_of("0123456789") != std::string::npos) return false;
  const std::string_view digits = text;
  const std::chrono::year year(number(digits.substr(0, 4)));
  const std::chrono::month month(static_cast<unsigned>(number(digits.substr(4, 2))));
  const std::chrono::day day(static_cast<unsigned>(number(digits.substr(6, 2))));
  return year != std::chrono::year(0) && (year / month / day).ok();
}

std::string processingDate(const Arguments& found) {
  const std::string text = found.value("--date");
  if (!text.empty() && !isDate(text))
    throw UsageError("--date muss ein Datum der Form jjjjmmtt sein, nicht \"" + text + "\".");
  return text;
}

std::string connectionOf(const Arguments& found, const std::optional<std::string>& environment) {
  if (found.has("--connection") && found.has("--connection-file"))
    throw UsageError("--connection und --connection-file schließen einander aus.");
  if (found.has("--connection")) return found.value("--connection");
  if (found.has("--connection-file")) return readConnectionFile(found.value("--connection-file"));
  const std::string sample = found.value("--create-sample");
  if (!sample.empty() && sample != inDatabase) return sqliteConnectionString(sample);
  if (environment && !environment->empty()) return *environment;
  throw UsageError(
      "Es fehlt die Verbindung: --connection, --connection-file oder VEXNUMKR_CONNECTION.");
}

/// Whether nothing but --create-sample is given, and what says where and how large.
bool onlySample(const Arguments& found) {
  static const std::set<std::string> own = {"--create-sample", "--scale", "--connection",
                                            "--connection-file"};
  return found.has("--create-sample") &&
         std::all_of(found.values.begin(), found.values.end(),
                     [&](const auto& option) { return own.count(option.first) != 0; });
}

int sampleScale(const Arguments& found) {
  constexpr int largest = 500;
  const std::string text = found.value("--scale");
  if (text.empty()) return 0;
  if (!found.has("--create-sample")) throw UsageError("--scale gilt nur mit --create-sample.");
  const bool isNumber = text.size() <= 3 && text.find_first_not_of("0123456789") == text.npos;
  if (!isNumber || number(text) < 1 || number(text) > largest)
    throw UsageError("--scale muss eine Zahl von 1 bis 500 sein, nicht \"" + text + "\".");
  return number(text);
}

void readSampleOptions(const Arguments& found, HostOptions& options) {
  const std::string sample = found.value("--create-sample");
  options.createTables = sample == inDatabase;
  if (!options.createTables) options.createSample = sample;
  options.sampleScale = sampleScale(found);
  options.showDialog = !onlySample(found);
}

}  // namespace

HostOptions readCommandLine(const std::vector<std::string>& arguments,
                            const std::optional<std::string>& environmentConnection) {
  const Arguments found = collect(arguments);
  HostOptions options;
  options.showHelp = found.help;
  options.showVersion = found.version;
  if (found.help || found.version) return options;

  readSampleOptions(found, options);
  if (options.createTables) options.connection = connectionOf(found, environmentConnection);
  if (!options.showDialog) return options;

  options.application = applicationCode(found);
  options.user = found.value("--user");
  if (options.user.empty()) throw UsageError("Es fehlt die Option --user.");
  options.date = processingDate(found);
  options.tour = found.value("--tour");
  options.dark = found.dark;
  options.connection = connectionOf(found, environmentConnection);
  return options;
}

std::string helpText() {
  return R"(Aufruf: vexnumkr-host --connection VERBINDUNG --application 1|2 --user NAME [Optionen]
        vexnumkr-host --create-sample [DATEI] [--scale N] [--connection VERBINDUNG]

Öffnet eine Datenbank und zeigt den Dialog "Nummernkreise".

)" + std::string(optionsHelp) +
         R"(
Rückgabewert: 0 Dialog geschlossen · 1 Datenbank, Anzeige oder Datei nicht zu öffnen
              2 falscher Aufruf
)";
}

}  // namespace vexnumkr::app
