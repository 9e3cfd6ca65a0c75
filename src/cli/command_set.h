// The program's commands: their names, options and help, and the one that was called.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "cli/session.h"

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace vexnumkr::cli {

/// What a command needs of the options that all share.
enum class Needs {
  nothing,
  database,          ///< the connection options
  application,       ///< those, and the application
  optionalDatabase,  ///< both, where they are given
};

enum class Presence { optional, required };

/// How an option is called, and what the help says of it.
struct OptionText {
  std::string name;         ///< "--key"; without hyphens it is told by its place
  std::string valueName;    ///< "NSCHL"
  std::string description;  ///< German
};

/// The options of one command. The variables that they fill have to live as long as the command.
class Command {
 public:
  Command(CLI::App& app, SharedOptions& shared) : app_(app), shared_(shared) {}

  void addText(const OptionText& text, std::string& value, Presence presence = Presence::optional);
  /// One of `choices`.
  void addChoice(const OptionText& text, std::string& value,
                 const std::vector<std::string>& choices, Presence presence = Presence::optional);
  /// A whole number from `lowest` to `highest`.
  void addNumber(const OptionText& text, std::int32_t& value, std::int32_t lowest,
                 std::int32_t highest);
  /// A number that may be missing.
  void addNumber(const OptionText& text, std::optional<std::int32_t>& value);
  void addFlag(const std::string& name, bool& value, const std::string& description);
  /// --date, a date as "yyyymmdd".
  void addDate(std::string& value);
  /// Another date.
  void addDate(const OptionText& text, std::string& value);
  /// --dry-run: lets the command be tried out.
  void addDryRun();

 private:
  CLI::App& app_;
  SharedOptions& shared_;
};

/// Runs a command; returns the exit status.
using Action = std::function<int(Session&)>;

/// A command's own description.
struct CommandText {
  std::string name;
  std::string description;  ///< German
  std::string example;      ///< what its help begins with, without the program's name
};

class CommandSet {
 public:
  CommandSet();
  ~CommandSet();
  CommandSet(const CommandSet&) = delete;
  CommandSet& operator=(const CommandSet&) = delete;

  /// Adds a command; its own options are added to the result.
  Command add(const CommandText& text, Needs needs, Action action);
  /// The same for a command of two words, such as "mask explain"; `group` is from addGroup.
  Command addTo(const std::string& group, const CommandText& text, Needs needs, Action action);
  /// A word that other commands follow.
  void addGroup(const std::string& name, const std::string& description);

  const SharedOptions& shared() const { return shared_; }

  /// Reads the command line. Returns what to run, or an action that prints help or the version.
  /// Error: UsageError.
  Action parse(int argc, const char* const* argv);

 private:
  Command addTo(CLI::App& parent, const CommandText& text, Needs needs, Action action);
  void addShared(Command& command, Needs needs);
  Action called(const CLI::App& command) const;
  void requireNoExtras() const;

  SharedOptions shared_;
  std::unique_ptr<CLI::App> app_;
  std::map<const CLI::App*, Action> actions_;
};

/// Today as "yyyymmdd".
std::string today();

}  // namespace vexnumkr::cli
