#include "support/fresh_database.h"

#include <QFile>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>
#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <stdexcept>

#include <vexnumkr/adapters.h>
#include <vexnumkr/connection_string.h>

#include "adapters/qtsql/opening/database_handle.h"

namespace vexnumkr::test {
namespace {

std::string environment(const char* name) {
  const char* const value = std::getenv(name);
  return value == nullptr ? std::string() : value;
}

std::string serverFolder(std::string_view engine) {
  std::ifstream file(environment("VEXNUMKR_TEST_SERVERS"));
  std::string folder;
  if (!std::getline(file, folder)) throw std::runtime_error("there are no test servers");
  return folder + "/" + std::string(engine);
}

template <typename Entry, std::size_t count>
const Entry& entryOf(const Entry (&entries)[count], std::string_view name) {
  const auto* const found = std::find_if(std::begin(entries), std::end(entries),
                                         [&](const Entry& entry) { return entry.name == name; });
  if (found != std::end(entries)) return *found;
  throw std::runtime_error("no engine is called " + std::string(name));
}

void replace(std::string& text, std::string_view what, const std::string& by) {
  for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + by.size()))
    text.replace(at, what.size(), by);
}

std::string firstLine(const std::string& file) {
  std::ifstream stream(file);
  std::string line;
  if (!std::getline(stream, line)) throw std::runtime_error("there is no " + file);
  return line;
}

// The nodes as clients reach them.
std::string serversOfCluster(const std::string& folder) {
  std::string servers;
  for (int node = 1; QFile::exists(QString::fromStdString(folder + '/' + std::to_string(node)));
       ++node)
    servers += (servers.empty() ? "127.0.0.1:" : ",127.0.0.1:") +
               firstLine(folder + '/' + std::to_string(node) + "/relay");
  return servers;
}

std::string clusterUnderTest() { return environment("VEXNUMKR_TEST_CLUSTER"); }

// The same on all nodes of the cluster, where there is one.
std::string onCluster(const std::string& connectionString) {
  if (clusterUnderTest().empty()) return connectionString;
  const std::string folder = serverFolder(clusterUnderTest());
  ConnectionSettings settings = parseConnectionString(connectionString);
  settings.server = serversOfCluster(folder);
  settings.user = "vexnumkr";
  settings.password = firstLine(folder + "/password");
  return composeConnectionString(settings);
}

std::string makeFile(const QTemporaryDir& folder) {
  const QString path = folder.filePath(QStringLiteral("firma.db"));
  QFile(path).open(QIODevice::WriteOnly);
  return path.toStdString();
}

// Lower case, so that it needs no quotes anywhere.
std::string newName() { return "test_" + QUuid::createUuid().toString(QUuid::Id128).toStdString(); }

}  // namespace

std::string engineUnderTest() {
  const std::string engine = environment("VEXNUMKR_TEST_ENGINE");
  return engine.empty() ? "sqlite" : engine;
}

FreshDatabase::FreshDatabase(const std::string& engine)
    : way_(entryOf(testWays, engine)),
      engine_(entryOf(testEngines, way_.engine)),
      name_(isOnServer() ? newName() : makeFile(folder_)),
      connectionString_(onCluster(connectionString(std::string(engine_.user), ""))) {
  if (isOnServer()) administer(filledIn(engine_.create));
}

FreshDatabase::~FreshDatabase() {
  try {
    if (isOnServer()) administer(filledIn(engine_.drop));
  } catch (const std::exception&) {
    // The server is gone, and its files with it.
  }
}

bool FreshDatabase::isOnServer() const { return !engine_.administration.empty(); }

std::string FreshDatabase::connectionString(const std::string& user,
                                            const std::string& password) const {
  ConnectionSettings settings = parseConnectionString(filledIn(way_.connection));
  settings.user = user;
  settings.password = password;
  return composeConnectionString(settings);
}

std::string FreshDatabase::filledIn(std::string_view text) const {
  std::string result(text);
  replace(result, "%name%", name_);
  if (isOnServer()) replace(result, "%folder%", serverFolder(engine_.name));
  return result;
}

void FreshDatabase::administer(const std::string& statement) const {
  if (!clusterUnderTest().empty()) {
    std::int32_t affected = 0;
    openQtSqlConnection(onCluster(filledIn(engine_.administration)))->Execute(statement, affected);
    return;
  }
  const ConnectionSettings settings = parseConnectionString(filledIn(engine_.administration));
  const qtsql::DatabaseHandle server(qtsql::driverOf(settings.driver), settings);
  QSqlQuery query(server.get());
  if (!query.exec(QString::fromStdString(statement)))
    throw std::runtime_error(query.lastError().text().toStdString());
}

}  // namespace vexnumkr::test
