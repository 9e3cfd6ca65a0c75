#include "cli/program/program.h"

#include <QCoreApplication>
#include <iostream>
#include <new>
#include <string>
#include <string_view>
#include <vector>

#include <vexnumkr/connection_string.h>
#include <vexnumkr/error.h>
#include <vexnumkr/numbers.h>

#include "app/process_list.h"
#include "cli/commands/commands.h"
#include "cli/exit_status.h"
#include "cli/plugin_line.h"
#include "cli/usage_error.h"

namespace vexnumkr::cli {
namespace {

// The number library's own errors, which no engine has.
constexpr const char* librarySource = "vexnumkr";

// How a call was made, and how it wants its failure told.
struct Call {
  std::vector<std::string> arguments;
  const SharedOptions& options;

  // What a message quotes may be a connection string that stands in a wrong place.
  std::string shown(const std::string& text) const {
    return app::withoutPasswordsOf(arguments, text);
  }
};

int report(const Call& call, int status, const std::string& text, std::int32_t number = 0) {
  const std::string shown = call.shown(text);
  if (call.options.json) {
    Json error{{"error", {{"number", number}, {"text", shown}}}};
    std::cerr << error.dump(-1, ' ', false, Json::error_handler_t::replace) << '\n';
  } else {
    std::cerr << "vexnumkr: " << shown << '\n';
  }
  return status;
}

int reportFailure(const Call& call, const Session& session, const Error& error) {
  const std::string text = withoutPasswords(error.description(), session.connectionText());
  if (error.source() == librarySource) {
    const int status = error.number() == error_number::invalidCall ? exit_status::wrongCall
                                                                   : exit_status::findings;
    return report(call, status, text, error.number());
  }
  return report(call, exit_status::database,
                "Die Datenbank meldet: " + text + " (Fehler " + std::to_string(error.number()) +
                    ")\nOb alles eingerichtet ist, sagt \"vexnumkr doctor\".",
                error.number());
}

// What no command expects: memory that has run out, a fault of a library or of this program.
int reportUnexpected(const Call& call, const Session& session) {
  try {
    throw;
  } catch (const std::bad_alloc&) {
    return report(call, exit_status::database, "Der Arbeitsspeicher reicht nicht.");
  } catch (const std::exception& error) {
    return report(call, exit_status::database,
                  withoutPasswords(error.what(), session.connectionText()));
  } catch (...) {
    return report(call, exit_status::database, "Etwas Unbekanntes ist fehlgeschlagen.");
  }
}

// Whether "check --format nagios" is called, right or wrong: a monitoring system reads its line,
// and takes every status for one of its own.
bool isPlugin(int argc, char** argv) {
  const std::vector<std::string_view> words(argv, argv + argc);
  if (words.size() < 2 || words[1] != "check") return false;
  for (std::size_t at = 2; at < words.size(); ++at)
    if (words[at] == "--format=nagios" || (words[at] == "nagios" && words[at - 1] == "--format"))
      return true;
  return false;
}

int run(const Call& call, const Action& action) {
  Session session(call.options, std::cout, std::cerr);
  try {
    const int status = action(session);
    std::cout.flush();
    if (!std::cout) throw UsageError("Die Ausgabe ist nicht zu schreiben.");
    return status;
  } catch (const UsageError& error) {
    return report(call, exit_status::wrongCall, error.what());
  } catch (const Error& error) {
    return reportFailure(call, session, error);
  } catch (...) {
    return reportUnexpected(call, session);
  }
}

}  // namespace

int runProgram(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  CommandSet commands;
  addCommands(commands);
  const Call call{{argv, argv + argc}, commands.shared()};
  Action action;
  try {
    action = commands.parse(argc, argv);
  } catch (const UsageError& error) {
    if (!isPlugin(argc, argv)) return report(call, exit_status::wrongCall, error.what());
    std::cout << unknownLine(call.shown(error.what())) << '\n';
    return exit_status::unknown;
  }
  app::hidePasswords(argc, argv);
  return run(call, action);
}

}  // namespace vexnumkr::cli
