#include <functional>
#include <map>

#include <vexnumkr/error.h>
#include <vexnumkr/number_doctor.h>
#include <vexnumkr/value.h>

#include "numbers/doctor/probes.h"
#include "numbers/query.h"
#include "numbers/sql/literals.h"
#include "numbers/sql/statements.h"

namespace vexnumkr::numbers {
namespace {

constexpr const char* probeKey = "~vexnumkr";
constexpr const char* otherCase = "~VEXNUMKR";

std::string messageOf(const std::function<void()>& action) {
  try {
    action();
    return {};
  } catch (const Error& error) {
    return error.description();
  }
}

bool succeeds(const std::function<void()>& action) {
  try {
    action();
    return true;
  } catch (const Error&) {
    return false;
  }
}

std::string asSentence(const std::string& text) { return text.ends_with('.') ? text : text + "."; }

// Days since a fixed day; as exact as a comparison of neighbouring days needs.
std::int64_t dayNumber(const std::string& digits) {
  const auto part = [&](std::size_t at, std::size_t length) {
    return std::int64_t{textToLong(std::string_view(digits).substr(at, length))};
  };
  return part(0, 4) * 372 + part(4, 2) * 31 + part(6, 2);
}

class Doctor {
 public:
  Doctor(Connection& connection, std::string date)
      : connection_(connection), date_(std::move(date)) {}

  std::vector<Diagnosis> examine() {
    if (tablesAreThere()) {
      add("values", "Werte", valueProblem(),
          "Die Werte in der Datenbank richtigstellen; vorher öffnet der Dialog nicht.");
      tryWriting();
      add("users", "Benutzer", userProblem(),
          "Die Benutzer in tblUser eintragen, keiner davon mit dem Namen \"Alle Benutzer\".");
    }
    examineCluster();
    add("secondConnection", "zweite Verbindung", secondConnectionProblem(),
        "Der Dialog öffnet sie mit der Verbindungszeichenfolge des Programms; die muss alles "
        "enthalten, auch ein Kennwort, und der Server eine weitere Verbindung zulassen.");
    add("clock", "Uhr", clockProblem(),
        "Uhr und Zeitzone von Rechner und Datenbankserver stellen; Masken richten sich danach.");
    return std::move(found_);
  }

 private:
  void add(const char* name, const char* title, const std::string& problem,
           const std::string& remedy) {
    found_.push_back({.name = name,
                      .title = title,
                      .isFine = problem.empty(),
                      .problem = problem,
                      .remedy = problem.empty() ? std::string() : remedy});
  }

  std::int32_t count(const std::string& text) {
    return select(connection_, text)->Fields("Anzahl").toLong();
  }

  bool tablesAreThere() {
    std::string problem;
    for (const TableShape& table : hostTables())
      if (const std::string one = tableProblem(table); !one.empty())
        problem += (problem.empty() ? "" : " ") + one;
    // SQLite opens any file, and says so when it reads.
    if (problem.find("not a database") != std::string::npos) {
      add("tables", "Tabellen und Spalten", "Die Datei ist keine Datenbank.",
          "In der Verbindung die Datei der Datenbank nennen.");
      return false;
    }
    add("tables", "Tabellen und Spalten", problem,
        "Fehlende Tabellen legt \"vexnumkr schema create\" an; das Recht zum Lesen gibt der "
        "Eigentümer (\"vexnumkr schema print --part rechte\").");
    return problem.empty();
  }

  bool isReadable(const std::string& table, const std::string& columns) {
    return succeeds([&] { select(connection_, probe::readNothing(table, columns)); });
  }

  // One sentence, or nothing.
  std::string tableProblem(const TableShape& table) {
    const std::string failure = messageOf(
        [&] { select(connection_, probe::readNothing(table.name, "COUNT(*) AS Anzahl")); });
    if (!failure.empty())
      return asSentence("Die Tabelle " + table.name + " ist nicht lesbar: " + failure);
    std::string missing;
    for (const std::string& column : table.columns)
      if (!isReadable(table.name, column)) missing += (missing.empty() ? "" : ", ") + column;
    return missing.empty() ? missing : "In " + table.name + " fehlt: " + missing + ".";
  }

  // Values that are missing, and those that a column took although they are no numbers of 32 bits.
  std::string valueProblem() {
    const std::int32_t ranges = count(probe::rangesWithNull());
    std::string problem;
    if (ranges > 0)
      problem = std::to_string(ranges) +
                (ranges == 1 ? " Nummernkreis hat" : " Nummernkreise haben") +
                " keine Bezeichnung oder keinen Start-, Aktuell- oder Endwert (NULL).";
    const std::string unreadable = unreadableValues();
    return problem + (problem.empty() || unreadable.empty() ? "" : " ") + unreadable;
  }

  std::string unreadableValues() {
    constexpr int shown = 10;
    int found = 0;
    std::string text;
    const std::string failure = messageOf([&] {
      for (const auto row = select(connection_, statement::ranges()); !row->EndOfFile();
           row->MoveNext()) {
        const std::string field = unreadableField(*row);
        if (!field.empty() && ++found <= shown) text += (text.empty() ? "" : "; ") + field;
      }
    });
    if (!failure.empty()) return asSentence(failure);
    if (found == 0) return {};
    return "Nicht zu lesen: " + text +
           (found > shown ? "; und " + std::to_string(found - shown) + " weitere" : "") + ".";
  }

  // "RE, Buchungskreis 1: StartWert \"abc\"", or nothing.
  static std::string unreadableField(const Recordset& row) {
    const auto shown = [&](const char* field) {
      std::string text = "?";
      succeeds([&] { text = textOf(row, field); });
      return text;
    };
    for (const char* const field :
         {"Buchungskreis", "NSchl", "NBezeichnung", "StartWert", "AktuellerWert", "EndWert",
          "Aktiviert", "SortierIndex", "IstNSchlVon", "Maske"})
      if (!succeeds([&] { requireReadable(row, field); }))
        return shown("NSchl") + ", Buchungskreis " + shown("Buchungskreis") + ": " + field + " \"" +
               shown(field) + "\"";
    return {};
  }

  static void requireReadable(const Recordset& row, std::string_view field) {
    const Value value = row.Fields(field);
    if (value.isNull()) return;
    const bool isText =
        field == "NSchl" || field == "NBezeichnung" || field == "IstNSchlVon" || field == "Maske";
    if (isText)
      value.toText();
    else if (field == "Aktiviert")
      value.toBoolean();
    else
      value.toLong();
  }

  std::string userProblem() {
    if (count(probe::users()) == 0) return "Es gibt keinen Benutzer.";
    if (count(probe::usersCalled("Alle Benutzer")) > 0)
      return "Ein Benutzer heißt \"Alle Benutzer\"; das steht für alle.";
    return {};
  }

  // All of it in one transaction, of which nothing is to stay.
  void tryWriting() {
    const std::string beginning = messageOf([&] { connection_.BeginTrans(); });
    if (!beginning.empty()) {
      add("writing", "Schreiben", beginning, "Die Datenbank muss Transaktionen können.");
      return;
    }
    const std::string writing = messageOf([&] { writeAll(); });
    add("writing", "Schreiben", writing,
        "Rechte geben (\"vexnumkr schema print --part rechte\"), und prüfen, ob die Spalten Zahlen "
        "mit 32 Bit und Texte aufnehmen und die Datenbank beschreibbar ist.");
    if (writing.empty()) compareWritten();
    const std::string back = messageOf([&] { connection_.RollbackTrans(); });
    add("rollback", "Transaktionen", back.empty() ? leftoverProblem() : back,
        "Die Tabellen müssen Transaktionen können, auf MariaDB mit ENGINE = InnoDB.");
  }

  void writeAll() {
    execute(connection_, probe::insertRange(probeKey));
    execute(connection_, probe::updateRange(probeKey));
    for (const std::string& statement : probe::writesElsewhere()) execute(connection_, statement);
  }

  void compareWritten() {
    add("types", "Spaltentypen", typeProblem(),
        "Zahlen brauchen 32 Bit; Aktiviert muss eine kleine ganze Zahl sein, die -1 und 0 "
        "aufnimmt; "
        "die Datenbank muss UTF-8 speichern (\"vexnumkr schema print\").");
    const bool takesCases =
        succeeds([&] { execute(connection_, probe::insertRange(otherCase)); }) &&
        count(probe::countRanges(probeKey)) == 1;
    add("collation", "Textvergleich",
        takesCases ? "" : "Groß- und Kleinschreibung gilt beim Nummernschlüssel als gleich.",
        "Eine Sortierung nach Zeichen wählen: COLLATE \"C\" auf PostgreSQL, utf8mb4_nopad_bin auf "
        "MariaDB.");
    const bool takesTwice = succeeds([&] { execute(connection_, probe::insertRange(probeKey)); });
    add("key", "Primärschlüssel",
        takesTwice ? "Nummernkreise nimmt denselben Nummernkreis zweimal auf." : "",
        "Nummernkreise braucht den Primärschlüssel (Buchungskreis, NSchl).");
    add("settings", "Einstellungen", settingsProblem(),
        "Auf MariaDB sql_mode mit NO_BACKSLASH_ESCAPES und einen Zeichensatz, der alle Texte "
        "aufnimmt (utf8mb4); auf PostgreSQL standard_conforming_strings = on.");
    add("isolation", "Isolation", isolationProblem(),
        "Andere dürfen erst sehen, was bestätigt ist, und müssen solange lesen können: auf MariaDB "
        "transaction_isolation = REPEATABLE-READ, auf SQLite locking_mode = NORMAL.");
  }

  // Settings of the session that change what is stored show in texts.
  std::string settingsProblem() {
    if (connection_.BackslashEscapes())
      return "In Texten hat der Rückstrich eine Bedeutung; was der Dialog schreibt, würde "
             "verändert.";
    const std::string written = "C:\\neu \"5 €\" it's";
    std::string read;
    const std::string failure = messageOf([&] {
      execute(connection_, probe::describeRange(probeKey, Literals(connection_).text(written)));
      read = textOf(*select(connection_, probe::readRange(probeKey)), "NBezeichnung");
    });
    if (!failure.empty()) return failure;
    return read == written ? std::string() : "Aus " + written + " wurde " + read + ".";
  }

  // What is written but not committed is still there on this connection.
  std::string isolationProblem() {
    constexpr std::int32_t longestWait = 2;
    std::int32_t seen = 0;
    const std::string failure = messageOf([&] {
      const auto second = openSecond();
      second->CommandTimeout(longestWait);
      seen = select(*second, probe::countRanges(probeKey))->Fields("Anzahl").toLong();
      second->Close();
    });
    if (!failure.empty()) return "Wer gleichzeitig liest, muss warten: " + failure;
    return seen == 0 ? std::string() : "Andere sehen, was noch nicht bestätigt ist.";
  }

  std::unique_ptr<Connection> openSecond() {
    auto second = connection_.createConnection();
    if (second == nullptr) throw Error::objectNotSet();
    second->ConnectionString(connection_.ConnectionString());
    second->Open({}, {}, ado::unspecified);
    return second;
  }

  std::string typeProblem() {
    std::string problem;
    const std::string failure = messageOf([&] {
      const auto row = select(connection_, probe::readRange(probeKey));
      const auto require = [&](const char* field, std::int32_t value) {
        if (row->Fields(field).toLong() != value) problem += std::string(field) + " ";
      };
      require("StartWert", -2147483647);
      require("AktuellerWert", 1);
      require("EndWert", 2147483647);
      require("Aktiviert", -1);
      if (textOf(*row, "NBezeichnung") != "Prüfung") problem += "NBezeichnung ";
    });
    if (!failure.empty()) return failure;
    return problem.empty() ? problem : "Anders gelesen als geschrieben: " + problem;
  }

  std::string leftoverProblem() {
    if (count(probe::countRanges(probeKey)) == 0) return {};
    succeeds([&] { execute(connection_, probe::deleteRanges()); });
    for (const std::string& statement : probe::deletesElsewhere())
      succeeds([&] { execute(connection_, statement); });
    return "Was zurückgenommen wurde, steht trotzdem in der Tabelle.";
  }

  void examineCluster() {
    auto state = clusterState();
    if (state["wsrep_provider_name"].empty()) return;
    std::string problem;
    if (state["wsrep_cluster_status"] != "Primary" ||
        state["wsrep_local_state_comment"] != "Synced")
      problem =
          "Der Knoten arbeitet nicht mit den anderen zusammen: " + state["wsrep_cluster_status"] +
          ", " + state["wsrep_local_state_comment"] + ". ";
    problem += keyProblem();
    add("cluster", "Cluster", problem,
        "Im Cluster braucht jede Tabelle einen Primärschlüssel, Nummernkreis_Zuordnung einen, den "
        "niemand sieht: ALTER TABLE Nummernkreis_Zuordnung ADD COLUMN Zeile BIGINT UNSIGNED NOT "
        "NULL AUTO_INCREMENT INVISIBLE PRIMARY KEY. Einen Knoten, der nicht \"Primary, Synced\" "
        "ist, nimmt die Datenbankadministration wieder auf.");
  }

  // Empty on any other engine.
  std::map<std::string, std::string> clusterState() {
    std::map<std::string, std::string> state;
    succeeds([&] {
      for (const auto row = select(connection_, probe::clusterState()); !row->EndOfFile();
           row->MoveNext())
        state[textOf(*row, "Variable_name")] = textOf(*row, "Value");
    });
    return state;
  }

  std::string keyProblem() {
    std::string tables;
    const std::string failure = messageOf([&] {
      for (const auto row = select(connection_, probe::tablesWithoutKey()); !row->EndOfFile();
           row->MoveNext())
        tables += (tables.empty() ? "" : ", ") + textOf(*row, "Tabelle");
    });
    if (!failure.empty()) return failure;
    return tables.empty() ? tables : "Ohne Primärschlüssel: " + tables + ".";
  }

  std::string secondConnectionProblem() {
    return messageOf([&] { openSecond()->Close(); });
  }

  std::string clockProblem() {
    std::string problem;
    const std::string failure = messageOf([&] {
      std::string day = textOf(*select(connection_, probe::serverDate()), "Tag");
      std::erase(day, '-');
      const std::int64_t apart = dayNumber(day) - dayNumber(date_);
      if (apart < -1 || apart > 1)
        problem = "Für die Datenbank ist heute der " + day + ", hier der " + date_ + ".";
    });
    return failure.empty() ? problem : failure;
  }

  Connection& connection_;
  std::string date_;
  std::vector<Diagnosis> found_;
};

}  // namespace

std::vector<Diagnosis> diagnose(Connection& connection, const std::string& date) {
  return Doctor(connection, date).examine();
}

}  // namespace vexnumkr::numbers
