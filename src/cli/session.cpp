#include "cli/session.h"

#include <cstdlib>
#include <filesystem>
#include <ostream>

#include <vexnumkr/adapters.h>
#include <vexnumkr/connection_string.h>
#include <vexnumkr/error.h>

#include "app/command_line.h"
#include "app/connection_file.h"
#include "cli/progress.h"
#include "cli/usage_error.h"

namespace vexnumkr::cli {
namespace {

std::string connectionOfEnvironment() {
  const char* const value = std::getenv("VEXNUMKR_CONNECTION");
  return value == nullptr ? std::string() : value;
}

}  // namespace

bool Session::hasConnection() const {
  return !options_.connection.empty() || !options_.connectionFile.empty() ||
         !connectionOfEnvironment().empty();
}

Connection& Session::connection() {
  if (!connection_) {
    connectionText_ = readConnectionText();
    connection_ = openQtSqlConnection(connectionText_);
  }
  return *connection_;
}

std::string Session::missingFile() const {
  try {
    const ConnectionSettings settings = parseConnectionString(readConnectionText());
    const bool isFile = settings.driver == "QSQLITE" && !settings.database.starts_with(':') &&
                        !settings.database.starts_with("file:");
    std::error_code none;
    return isFile && !std::filesystem::exists(settings.database, none) ? settings.database : "";
  } catch (const Error&) {  // opening it tells what is wrong
    return {};
  }
}

numbers::Company Session::company() {
  numbers::Company company;
  numbers::readAtOneMoment(connection(), [&] { company = companyInTransaction(); });
  return company;
}

numbers::Company Session::companyInTransaction() {
  Progress progress("Nummernkreise werden gelesen …");
  progress.show();
  return numbers::readCompany(connection(), application());
}

std::string Session::readConnectionText() const {
  if (!options_.connection.empty() && !options_.connectionFile.empty())
    throw UsageError("--connection und --connection-file schließen einander aus.");
  if (!options_.connection.empty()) return options_.connection;
  if (!options_.connectionFile.empty()) {
    try {
      return app::readConnectionFile(options_.connectionFile);
    } catch (const app::UsageError& error) {
      throw UsageError(error.what());
    }
  }
  // Last, so that a call can name another one than its surroundings do.
  std::string text = connectionOfEnvironment();
  if (text.empty())
    throw UsageError(
        "Es fehlt die Verbindung: --connection, --connection-file oder VEXNUMKR_CONNECTION.");
  return text;
}

// A text that is not UTF-8 is no reason to print nothing of an answer.
void Session::printLine(const Json& object) {
  out_ << object.dump(-1, ' ', false, Json::error_handler_t::replace) << '\n';
}

void Session::printDocument(const Json& document) {
  out_ << document.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
}

}  // namespace vexnumkr::cli
