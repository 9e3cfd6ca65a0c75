#include "soak/soak_world.h"

#include <QFileInfo>
#include <QString>
#include <algorithm>
#include <utility>

#include <vexnumkr/adapters.h>
#include <vexnumkr/error.h>
#include <vexnumkr/numbers.h>

#include "app/schema/schema.h"

namespace vexnumkr::test {
namespace {

constexpr std::int32_t statementTimeout = 2;  // seconds, where somebody else holds a lock

std::unique_ptr<PrivateServer> serverForTest() {
  if (engineUnderTest() == "sqlite") return nullptr;
  return std::make_unique<PrivateServer>(engineUnderTest());
}

std::string folderOf(const std::string& file) {
  return QFileInfo(QString::fromStdString(file)).canonicalPath().toStdString();
}

// Of a table's line, in the order of its columns.
std::vector<std::string> fieldsOf(const std::string& line) {
  std::vector<std::string> fields;
  for (std::size_t at = 0; at < line.size();) {
    const std::size_t end = line.find('|', at);
    fields.push_back(line.substr(at, end - at));
    at = end + 1;
  }
  return fields;
}

// Whether a line of Nummernkreise is another one whose AktuellerWert has gone on by one.
bool isNextOf(const std::string& after, const std::string& before) {
  constexpr std::size_t AktuellerWert = 4;
  const std::vector<std::string> now = fieldsOf(after);
  std::vector<std::string> expected = fieldsOf(before);
  if (now.size() != expected.size() || now.size() <= AktuellerWert) return false;
  expected[AktuellerWert] = std::to_string(std::stol(expected[AktuellerWert]) + 1);
  return now == expected;
}

bool isOneNumberOn(const std::vector<std::string>& before, const std::vector<std::string>& after) {
  if (before.size() != after.size()) return false;
  const auto [was, is] = std::mismatch(before.begin(), before.end(), after.begin());
  return was != before.end() && isNextOf(*is, *was) && std::equal(was + 1, before.end(), is + 1);
}

std::string difference(const std::vector<std::string>& found,
                       const std::vector<std::string>& saved) {
  std::string text;
  for (const std::string& line : found) text += "\n  " + line;
  text += "\nsaved was:";
  for (const std::string& line : saved) text += "\n  " + line;
  return text;
}

[[noreturn]] void fail(const char* text) { throw Error(4711, "Soak", text); }

}  // namespace

// The host of one dialog.
class SoakWorld::Host final : public HostComponents {
 public:
  Host(SoakWorld& world, std::shared_ptr<Connection> real)
      : world_(world), connection_(std::make_shared<HookedConnection>(std::move(real), hooks)) {}

  std::unique_ptr<HostComponent> CreateObject(const std::string& name) override {
    if (name != component_name::bookingCircles || world_.chance(20))
      throw Error::cannotCreateObject();
    return std::make_unique<Circles>(world_);
  }
  HostTexts* Texts() override { return nullptr; }
  HostMessages* Messages() override { return nullptr; }

  std::shared_ptr<Connection> connection() const { return connection_; }

  Hooks hooks;

 private:
  class Circles final : public BookingCircleDialog {
   public:
    explicit Circles(SoakWorld& world) : world_(world) {}
    void Connection(std::shared_ptr<vexnumkr::Connection> connection) override {
      connection_ = std::move(connection);
    }
    void MultiSelect(bool) override {}
    void Show(const std::string&, std::int32_t) override { world_.maintainCircles(*connection_); }

   private:
    SoakWorld& world_;
    std::shared_ptr<vexnumkr::Connection> connection_;
  };

  SoakWorld& world_;
  std::shared_ptr<Connection> connection_;
};

SoakWorld::SoakWorld(std::mt19937& random)
    : random_(random),
      server_(serverForTest()),
      disk_(isOnServer() ? "/nowhere" : folderOf(database_.name())) {
  if (!isOnServer() && chance(500)) writeAhead();
  makeCompany();
  stored_ = contents(*connect());
}

SoakWorld::~SoakWorld() = default;

// SQLite's other journal, which the file keeps.
void SoakWorld::writeAhead() {
  std::int32_t affected = 0;
  connect()->Execute("PRAGMA journal_mode = WAL", affected);
}

void SoakWorld::makeCompany() {
  const auto connection = connect();
  std::int32_t affected = 0;
  for (const std::string& statement : app::rangeTableStatements(database_.schema()))
    connection->Execute(statement, affected);
  for (const char* statement :
       {"INSERT INTO tblUser VALUES ('Anna'), ('Max')",
        "INSERT INTO Nummernkreis_Buchungskreise VALUES (1, 'Nord', 'ORC'), (2, 'Süd', 'ORC'), "
        "(1, 'Nord', 'ORB'), (3, 'West', 'ORB')",
        "INSERT INTO Nummernkreise VALUES (0, 'AN', 'Angebot', 1, 5, 99, -1, 1, '', ''), "
        "(1, 'AN', 'Angebot', 100, 150, 199, -1, 1, '', '1NN'), "
        "(2, 'AN', 'Angebot', 200, 200, 299, 0, 1, '', '2NN'), "
        "(0, 'RE', 'Rechnung', 1000, 1500, 1999, -1, 2, '', ''), "
        "(1, 'RE', 'Rechnung', 2000, 2000, 2999, -1, 2, '', 'JNNN'), "
        "(3, 'RE', 'Rechnung', 3000, 3000, 3999, -1, 2, '', ''), "
        "(0, 'BR', 'Barrechnung', 1, 1, 1, 0, 3, 'RE', ''), "
        "(1, 'LM', 'Mahnung', 1, 1, 1, 0, 7, NULL, NULL)",
        "INSERT INTO Nummernkreis_Sonderkreise VALUES ('BR', 'RE', 'Barrechnung', 0, 'ORC')",
        "INSERT INTO Nummernkreis_Zuordnung VALUES (1, 'AN', 'Max', 'ORC'), (1, 'RE', 'ALL', "
        "'ORC')"})
    connection->Execute(statement, affected);
}

// As a host would that does not want its users to wait.
std::shared_ptr<Connection> SoakWorld::connect() {
  auto connection = openQtSqlConnection(database_.connectionString());
  connection->CommandTimeout(statementTimeout);
  return connection;
}

std::vector<std::string> SoakWorld::contents(Connection& connection) const {
  struct Table {
    const char* select;
    std::vector<const char*> columns;
  };
  static const std::vector<Table> tables = {
      {"SELECT * FROM Nummernkreise ORDER BY Buchungskreis, NSchl",
       {"Buchungskreis", "NSchl", "NBezeichnung", "StartWert", "AktuellerWert", "EndWert",
        "Aktiviert", "SortierIndex", "IstNSchlVon", "Maske"}},
      {"SELECT * FROM Nummernkreis_Zuordnung ORDER BY Herkunft, Buchungskreis, NSchl, Benutzer",
       {"Buchungskreis", "NSchl", "Benutzer", "Herkunft"}},
      {"SELECT * FROM Nummernkreis_Buchungskreise ORDER BY Herkunft, Buchungskreis",
       {"Buchungskreis", "Beschreibung", "Herkunft"}},
      {"SELECT * FROM Nummernkreis_Sonderkreise ORDER BY Herkunft, U_NSchl",
       {"U_NSchl", "NSchl", "NBezeichnung", "Aktiviert", "Herkunft"}}};
  std::vector<std::string> lines;
  for (const Table& table : tables) {
    std::int32_t found = 0;
    const auto rows = connection.Execute(table.select, found);
    for (; !rows->EndOfFile(); rows->MoveNext()) {
      std::string line;
      for (const char* column : table.columns) {
        const Value value = rows->Fields(column);
        line += (value.isNull() ? "NULL" : value.toText()) + '|';
      }
      lines.push_back(line);
    }
  }
  return lines;
}

void SoakWorld::session() {
  static const std::vector<std::string> users = {"Anna", "Max"};
  try {
    const auto real = connect();
    Host host(*this, real);
    follow(host.hooks, real);
    const auto component = createVXNummernkreise(host);
    ++open_;
    if (component->Init(host.connection(), 1 + upTo(1), users[static_cast<std::size_t>(upTo(1))],
                        "20270115"))
      component->ShowDialog();
    --open_;
  } catch (const Error& failure) {
    // Connecting fails while the disk does.
    if (!disk_.fails()) ADD_FAILURE() << failure.what();
  }
}

void SoakWorld::follow(Hooks& hooks, const std::shared_ptr<Connection>& real) {
  hooks.before = [this, real](const std::string& member) {
    misbehave(member);
    if (member == "CommitTrans") committing(*real);
  };
  hooks.after = [this](const std::string& member) {
    if (member == "CommitTrans") committed();
  };
}

void SoakWorld::misbehave(const std::string& member) {
  if (isHealthy_) return;
  if (member == "CommitTrans" && chance(100)) {
    ++troubles_.commits;
    fail("Die Festschreibung scheitert absichtlich");
  }
  if (member == "Open" && chance(20)) {
    ++troubles_.connects;
    fail("Die Verbindung scheitert absichtlich");
  }
  if ((member == "Command.Execute" || member == "Execute" || member == "Update") && chance(4)) {
    ++troubles_.statements;
    fail("Die Anweisung scheitert absichtlich");
  }
}

// What the transaction holds is what is stored if it is committed.
void SoakWorld::committing(Connection& connection) { pending_ = contents(connection); }

void SoakWorld::committed() {
  stored_ = *pending_;
  pending_.reset();
  ++troubles_.saves;
  check();
}

void SoakWorld::check() {
  std::vector<std::string> found;
  try {
    found = contents(*connect());
  } catch (const Error& failure) {
    // A database that could not roll back has to, before it can be read.
    if (!disk_.fails()) ADD_FAILURE() << failure.what();
    return;
  }
  ++troubles_.checks;
  // A commit that has failed may have come through all the same.
  if (pending_ && found == *pending_) stored_ = found;
  pending_.reset();
  if (found == stored_) return;
  ADD_FAILURE() << "stored is what nobody has saved:" << difference(found, stored_);
  stored_ = found;
}

void SoakWorld::afterStep() {
  check();
  if (isHealthy_) return;
  if (chance(60)) draw();
  if (open_ == 1 && chance(20)) {
    ++troubles_.secondDialogs;
    session();
  }
  if (!isOnServer()) {
    if (disk_.fails() ? chance(300) : chance(30)) {
      const bool heals = disk_.fails();
      disk_.beFull(!heals && chance(500));
      disk_.loseSyncs(!heals && !disk_.fails());
    }
    troubles_.disk = disk_.failures();
  } else if (chance(5)) {
    killServer();
  }
  check();
}

void SoakWorld::draw() {
  static const std::vector<std::string> keys = {"AN", "RE"};
  bool hasDrawn = false;
  try {
    const auto connection = connect();
    numbers::draw(*connection, {.application = 1 + upTo(1),
                                .user = "Max",
                                .key = keys[static_cast<std::size_t>(upTo(1))]});
    hasDrawn = true;
    ++troubles_.draws;
  } catch (const Error&) {
    // Nothing is left to draw, or a dialog has locked the range: nothing has changed. A disk that
    // fails may have taken the number all the same.
    if (!disk_.fails()) return;
  }
  try {
    drawn(contents(*connect()), hasDrawn);
  } catch (const Error& failure) {
    if (!disk_.fails()) ADD_FAILURE() << failure.what();
  }
}

// One number more, and nothing else. While the disk fails, a commit may not have been told from a
// roll-back yet.
void SoakWorld::drawn(std::vector<std::string> found, bool hasDrawn) {
  const auto goesOn = [&](const std::vector<std::string>& before) {
    return isOneNumberOn(before, found) || (!hasDrawn && found == before);
  };
  if (!goesOn(stored_) && !(pending_ && goesOn(*pending_)))
    ADD_FAILURE() << "a draw has changed something else:" << difference(found, stored_);
  stored_ = std::move(found);
  pending_.reset();
}

// The host's administration on the dialog's connection: in its transaction.
void SoakWorld::maintainCircles(Connection& connection) {
  ++troubles_.circles;
  const std::string circle = std::to_string(4 + upTo(3));
  std::int32_t affected = 0;
  const char* const origin = chance(500) ? "'ORC'" : "'ORB'";
  connection.Execute("DELETE FROM Nummernkreis_Buchungskreise WHERE Buchungskreis=" + circle +
                         " AND Herkunft=" + origin,
                     affected);
  if (affected == 0)
    connection.Execute("INSERT INTO Nummernkreis_Buchungskreise VALUES (" + circle + ", 'Kreis " +
                           circle + "', " + origin + ")",
                       affected);
}

void SoakWorld::killServer() {
  ++troubles_.servers;
  server_->kill();
  server_->start();
}

void SoakWorld::heal() {
  isHealthy_ = true;
  disk_.beFull(false);
  disk_.loseSyncs(false);
}

}  // namespace vexnumkr::test
