#include "cli/command_set.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <chrono>
#include <ctime>
#include <ostream>
#include <string_view>

#include <vexnumkr/version.h>

#include "cli/exit_status.h"
#include "cli/help.h"
#include "cli/usage_error.h"

namespace vexnumkr::cli {
namespace {

constexpr const char* programName = "vexnumkr";

int numberOf(const std::string& digits) {
  int value = 0;
  for (const char digit : digits) value = value * 10 + (digit - '0');
  return value;
}

bool isDate(const std::string& text) {
  if (text.size() != 8 || text.find_first_not_of("0123456789") != std::string::npos) return false;
  const std::chrono::year_month_day date{
      std::chrono::year(numberOf(text.substr(0, 4))),
      std::chrono::month(static_cast<unsigned>(numberOf(text.substr(4, 2)))),
      std::chrono::day(static_cast<unsigned>(numberOf(text.substr(6, 2))))};
  return date.ok() && text.substr(0, 4) != "0000";
}

// Asked here, so that a number that is none is a wrong call and not a failure of the command.
std::string notANumber(const std::string& text, std::int32_t lowest, std::int32_t highest) {
  const bool sign = text.starts_with('-');
  const std::string digits = text.substr(sign ? 1 : 0);
  const bool isNumber = !digits.empty() && digits.size() <= 10 &&
                        digits.find_first_not_of("0123456789") == std::string::npos;
  const long long value = isNumber ? std::stoll(text) : 0;
  if (isNumber && value >= lowest && value <= highest) return {};
  return "muss eine Zahl von " + std::to_string(lowest) + " bis " + std::to_string(highest) +
         " sein, nicht \"" + text + "\".";
}

std::vector<std::string> optionNames(const CLI::App& command) {
  std::vector<std::string> names;
  for (const CLI::Option* option : command.get_options())
    for (const std::string& name : option->get_lnames()) names.push_back("--" + name);
  return names;
}

std::vector<std::string> commandNames(const CLI::App& group) {
  std::vector<std::string> names;
  for (const CLI::App* command : group.get_subcommands({})) names.push_back(command->get_name());
  return names;
}

// The command that was called, as deep as there is one.
const CLI::App& deepest(const CLI::App& app) {
  const auto called = app.get_subcommands();
  return called.empty() ? app : deepest(*called.front());
}

std::string probably(const std::string& word, const std::vector<std::string>& known) {
  const std::string meant = nearest(word, known);
  return meant.empty() ? std::string() : " Gemeint ist vielleicht " + meant + ".";
}

std::string leadToHelp(const CLI::App& command) {
  return "\nDer Aufruf wird mit \"" + calledAs(command) + " --help\" erklärt.";
}

// The library's errors are English; what they are about is an option.
std::string inGerman(const CLI::ParseError& error, const CLI::App& command) {
  const std::string text = error.what();
  const std::string option = text.substr(0, text.find_first_of(": "));
  if (error.get_name() == "RequiredError") {
    if (option.starts_with('A')) return "Es fehlt der Befehl." + leadToHelp(command);
    return "Es fehlt die Angabe " + option + "." + leadToHelp(command);
  }
  if (error.get_name() == "ArgumentMismatch")
    return "Die Option " + option + " braucht genau einen Wert." + leadToHelp(command);
  if (error.get_name() == "ValidationError") {
    const std::size_t colon = text.find(": ");
    return option + " " + text.substr(colon + 2) + leadToHelp(command);
  }
  return text + leadToHelp(command);
}

std::string listOf(const std::vector<std::string>& choices) {
  std::string text;
  for (std::size_t i = 0; i < choices.size(); ++i)
    text += (i == 0 ? "" : i + 1 == choices.size() ? " oder " : ", ") + choices[i];
  return text;
}

CLI::Option* addOption(CLI::App& app, const OptionText& text, std::string& value) {
  return app.add_option(text.name, value, text.description)
      ->option_text(text.valueName)
      ->check([](const std::string& given) {
        return given.empty() ? std::string("braucht einen Wert.") : std::string();
      });
}

}  // namespace

void Command::addText(const OptionText& text, std::string& value, Presence presence) {
  addOption(app_, text, value)->required(presence == Presence::required);
}

void Command::addChoice(const OptionText& text, std::string& value,
                        const std::vector<std::string>& choices, Presence presence) {
  addOption(app_, text, value)
      ->required(presence == Presence::required)
      ->check([choices](const std::string& given) {
        const bool isOne = std::find(choices.begin(), choices.end(), given) != choices.end();
        return isOne ? std::string()
                     : "muss " + listOf(choices) + " sein, nicht \"" + given + "\"." +
                           probably(given, choices);
      });
}

void Command::addNumber(const OptionText& text, std::int32_t& value, std::int32_t lowest,
                        std::int32_t highest) {
  app_.add_option(text.name, value, text.description)
      ->option_text(text.valueName)
      ->check([lowest, highest](const std::string& given) {
        return notANumber(given, lowest, highest);
      });
}

void Command::addNumber(const OptionText& text, std::optional<std::int32_t>& value) {
  const auto store = [&value](const std::int32_t& given) { value = given; };
  app_.add_option_function<std::int32_t>(text.name, store, text.description)
      ->option_text(text.valueName)
      ->check([](const std::string& given) { return notANumber(given, INT32_MIN, INT32_MAX); });
}

void Command::addFlag(const std::string& name, bool& value, const std::string& description) {
  app_.add_flag(name, value, description);
}

void Command::addDate(std::string& value) {
  addDate({"--date", "JJJJMMTT", "das Verarbeitungsdatum; ohne Angabe gilt das heutige"}, value);
}

void Command::addDate(const OptionText& text, std::string& value) {
  addOption(app_, text, value)->check([](const std::string& given) {
    return isDate(given) ? std::string()
                         : "muss ein Datum der Form jjjjmmtt sein, nicht \"" + given + "\".";
  });
}

void Command::addDryRun() {
  addFlag("--dry-run", shared_.dryRun, "sagt, was geschähe, und ändert nichts");
}

CommandSet::CommandSet()
    : app_(std::make_unique<CLI::App>(
          "Nummernkreise von der Kommandozeile: Nummern ziehen, prüfen, Jahreswechsel, Umzug,\n"
          "Auskunft. Was hier nicht steht, geht im Dialog \"Nummernkreise\".",
          programName)) {
  app_->formatter(std::make_shared<HelpFormatter>());
  app_->set_help_flag("-h,--help", "zeigt diese Hilfe");
  app_->set_version_flag("--version", std::string(programName) + " " + version,
                         "zeigt die Version");
  app_->footer(
      "  export VEXNUMKR_CONNECTION=\"Driver=QSQLITE;Database=firma.db\"\n"
      "  vexnumkr check --application 1");
  app_->allow_extras();
}

CommandSet::~CommandSet() = default;

void CommandSet::addGroup(const std::string& name, const std::string& description) {
  CLI::App* const group = app_->add_subcommand(name, description);
  group->set_help_flag("-h,--help", "zeigt diese Hilfe");
  group->footer("");
  group->allow_extras();
}

Command CommandSet::add(const CommandText& text, Needs needs, Action action) {
  return addTo(*app_, text, needs, std::move(action));
}

Command CommandSet::addTo(const std::string& group, const CommandText& text, Needs needs,
                          Action action) {
  CLI::App& parent = *app_->get_subcommand(group);
  const std::string before = parent.get_footer();
  parent.footer(before + (before.empty() ? "  " : "\n  ") + programName + " " + text.example);
  return addTo(parent, text, needs, std::move(action));
}

Command CommandSet::addTo(CLI::App& parent, const CommandText& text, Needs needs, Action action) {
  CLI::App* const app = parent.add_subcommand(text.name, text.description);
  app->set_help_flag("-h,--help", "zeigt diese Hilfe");
  app->footer("  " + std::string(programName) + " " + text.example);
  app->allow_extras();
  actions_[app] = std::move(action);
  Command command(*app, shared_);
  addShared(command, needs);
  return command;
}

void CommandSet::addShared(Command& command, Needs needs) {
  if (needs != Needs::nothing) {
    command.addText({"--connection", "VERBINDUNG",
                     "die Datenbank, z. B. \"Driver=QSQLITE;Database=/pfad/firma.db\"; ohne Angabe "
                     "gilt die Umgebungsvariable VEXNUMKR_CONNECTION"},
                    shared_.connection);
    command.addText({"--connection-file", "DATEI",
                     "liest die Verbindung aus der ersten Zeile einer Datei, die nur ihr "
                     "Eigentümer lesen darf; so bleibt ein Kennwort geheim"},
                    shared_.connectionFile);
  }
  if (needs == Needs::application || needs == Needs::optionalDatabase)
    command.addChoice({"--application", "1|2", "die Anwendung: 1 für die Herkunft ORB, 2 für ORC"},
                      shared_.application, {"1", "2"},
                      needs == Needs::application ? Presence::required : Presence::optional);
  command.addFlag("--json", shared_.json, "gibt das Ergebnis als JSON aus");
}

Action CommandSet::parse(int argc, const char* const* argv) {
  std::vector<const char*> words(argv, argv + argc);
  // "vexnumkr help draw" is what some try first.
  if (argc > 1 && std::string_view(argv[1]) == "help") {
    words.erase(words.begin() + 1);
    words.push_back("--help");
  }
  try {
    app_->parse(static_cast<int>(words.size()), words.data());
  } catch (const CLI::CallForHelp&) {
    return [this](Session& session) {
      session.out() << deepest(*app_).help();
      return exit_status::fine;
    };
  } catch (const CLI::CallForVersion&) {
    return [](Session& session) {
      session.out() << programName << ' ' << version << '\n';
      return exit_status::fine;
    };
  } catch (const CLI::ParseError& error) {
    requireNoExtras();
    throw UsageError(inGerman(error, deepest(*app_)));
  }
  requireNoExtras();
  return called(deepest(*app_));
}

void CommandSet::requireNoExtras() const {
  const CLI::App& command = deepest(*app_);
  const std::vector<std::string> extras = app_->remaining(true);
  if (extras.empty()) return;
  const std::string& word = extras.front();
  const bool isOption = word.starts_with('-');
  const std::string name = word.substr(0, word.find('='));
  const bool isGroup = !command.get_subcommands({}).empty();
  const std::vector<std::string> options = optionNames(command);
  if (isOption && !isGroup && std::find(options.begin(), options.end(), name) != options.end())
    throw UsageError("Die Option " + name + " gehört hinter den Befehl: " + calledAs(command) +
                     " " + name + ".");
  const std::string what =
      isOption ? "Die Option " + name + " gibt es hier nicht."
               : (isGroup ? "Den Befehl \"" : "Die Angabe \"") + word + "\" gibt es hier nicht.";
  throw UsageError(what + probably(name, isOption ? optionNames(command) : commandNames(command)) +
                   leadToHelp(command));
}

Action CommandSet::called(const CLI::App& command) const {
  const auto found = actions_.find(&command);
  if (found == actions_.end()) throw UsageError("Es fehlt der Befehl." + leadToHelp(command));
  return found->second;
}

std::string today() {
  const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
  std::tm local{};
#if defined(_WIN32)
  localtime_s(&local, &now);
#else
  localtime_r(&now, &local);
#endif
  char text[9];
  std::strftime(text, sizeof text, "%Y%m%d", &local);
  return text;
}

}  // namespace vexnumkr::cli
