// What a command works with: the database, the application, and where its results go.
#pragma once

#include <cstdint>
#include <iosfwd>
#include <memory>
#include <string>

#include <vexnumkr/database.h>
#include <vexnumkr/number_company.h>

#include "cli/json.h"

namespace vexnumkr::cli {

/// The options that the commands share, as they were given; empty where they were not.
struct SharedOptions {
  std::string connection{};
  std::string connectionFile{};
  std::string application{};
  bool json = false;
  bool dryRun = false;
};

/// One run of a command.
class Session {
 public:
  Session(const SharedOptions& options, std::ostream& out, std::ostream& messages)
      : options_(options), out_(out), messages_(messages) {}

  /// Opened when it is first asked for. Errors: UsageError when none is named; the engine's.
  Connection& connection();
  /// Whether a connection is named.
  bool hasConnection() const;
  /// The connection string, empty until it is read.
  const std::string& connectionText() const { return connectionText_; }

  /// The SQLite file that the connection names, where there is none yet; empty otherwise, and where
  /// the connection cannot be read. Errors: UsageError when none is named.
  std::string missingFile() const;

  /// What the database holds at one moment, read anew; a terminal is told of it. Errors: of
  /// readCompany.
  numbers::Company company();
  /// The same in the transaction that runs, with what else is read of its moment.
  numbers::Company companyInTransaction();

  /// 1 where none is named.
  std::int32_t application() const { return options_.application == "2" ? 2 : 1; }
  bool namesApplication() const { return !options_.application.empty(); }
  bool json() const { return options_.json; }
  bool dryRun() const { return options_.dryRun; }

  /// Results, and nothing else.
  std::ostream& out() { return out_; }
  /// What is said besides.
  std::ostream& messages() { return messages_; }
  /// A result of one line.
  void printLine(const Json& object);
  /// A result of many lines, for people and programs alike.
  void printDocument(const Json& document);

 private:
  std::string readConnectionText() const;

  const SharedOptions& options_;
  std::ostream& out_;
  std::ostream& messages_;
  std::string connectionText_;
  std::shared_ptr<Connection> connection_;
};

}  // namespace vexnumkr::cli
