// The program's commands: their names, options and help, and the one that was called.
#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "cli/session.h"

namespace vexnumkr::cli {

/// What a command needs of the options that all share.
enum class Needs {
  nothing,
  database,     ///< the connection options
  application,  ///< those, and the application
};

/// Runs the command; returns the exit status.
using Action = std::function<int(Session&)>;

class CommandSet {
 public:
  CommandSet();

  /// Adds a command; its own options are added to the result. `example` is what its help begins
  /// with, without the program's name.
  CLI::App& add(const std::string& name, const std::string& description, const std::string& example,
                Needs needs, Action action);
  /// The same for a command of two words, such as "mask explain".
  CLI::App& add(CLI::App& group, const std::string& name, const std::string& description,
                const std::string& example, Needs needs, Action action);
  /// A word that other commands follow.
  CLI::App& addGroup(const std::string& name, const std::string& description);
  /// Lets the command be tried out.
  void addDryRun(CLI::App& command);

  CLI::App& app() { return app_; }
  const SharedOptions& shared() const { return shared_; }

  /// Reads the command line. Returns what to run, or an action that prints help or the version.
  /// Error: UsageError.
  Action parse(int argc, const char* const* argv);

 private:
  void addShared(CLI::App& command, Needs needs);
  Action called(const CLI::App& command) const;
  void requireNoExtras() const;

  SharedOptions shared_;
  CLI::App app_;
  std::map<const CLI::App*, Action> actions_;
};

/// An option with a text.
CLI::Option* addText(CLI::App& command, const std::string& name, std::string& value,
                     const std::string& valueName, const std::string& description);

/// An option with a whole number from `lowest` to `highest`.
CLI::Option* addNumber(CLI::App& command, const std::string& name, std::int32_t& value,
                       const std::string& valueName, const std::string& description,
                       std::int32_t lowest, std::int32_t highest);

/// The option --date.
CLI::Option* addDate(CLI::App& command, std::string& value);

/// Today as "yyyymmdd".
std::string today();

}  // namespace vexnumkr::cli
