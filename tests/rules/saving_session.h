// A session with something to save: ranges of two booking circles, a special range, two users.
#pragma once

#include <string>
#include <vector>

#include "data/sql/statements.h"
#include "rules/saving/saving.h"
#include "support/core_session.h"

namespace vexnumkr::test {

using Texts = std::vector<std::string>;

class SavingSession : public CoreSession {
 protected:
  /// Stores what the host has, in place of whatever is stored, and starts the session with an open
  /// transaction. Circle 7 belongs to the other origin, 8 to both.
  void company(std::int32_t application = 1);
  /// The dialog's transaction, and something changed in it.
  void open();
  /// A common range, or a user's row of it.
  void range(const std::string& user, std::int32_t circle, const std::string& key,
             std::int32_t start, const Value& active = true, const std::string& sharedWith = "");
  /// The ranges of the company after some edits.
  void editedTable();

  bool save(bool askFirst = false);
  /// What went over the connections since the last call, but for what only reads.
  Texts sent();
  /// All of it.
  Texts sentAndRead() { return script().takeStatements(); }

  Texts storedRanges();
  Texts storedAssignments();
  /// Both.
  Texts stored();

 private:
  void sql(const Texts& statements);
};

/// The company with the edits of editedTable, for saves that fail.
class EditedCompany : public SavingSession {
 protected:
  using CoreSession::sql;  // on another connection

  void SetUp() override {
    company();
    before_ = stored();
    editedTable();
  }

  /// What was stored before the edits.
  Texts before_;
};

inline void SavingSession::company(std::int32_t application) {
  const auto values = [](const char* table, const char* row) {
    return std::string("INSERT INTO ") + table + " VALUES (" + row + ")";
  };
  Texts statements{"DELETE FROM Nummernkreise", "DELETE FROM Nummernkreis_Buchungskreise",
                   "DELETE FROM Nummernkreis_Zuordnung"};
  for (const char* circle : {"1, 'Nord', 'ORB'", "2, 'Süd', 'ORB'", "7, 'West', 'ORC'",
                             "8, 'Ost', 'ORB'", "8, 'East', 'ORC'"})
    statements.push_back(values("Nummernkreis_Buchungskreise", circle));
  for (const char* range : {"0, 'RE', 'Rechnung alt', 1, 1, 9, 0, 10, NULL, NULL",
                            "1, 'RE', 'Rechnung alt', 1, 1, 9, -1, 10, '', ''",
                            "8, 'RE', 'Rechnung alt', 1, 1, 9, -1, 10, '', ''",
                            "0, 'SO', 'Sonder alt', 1, 1, 9, -1, 99999999, 'RE', ''",
                            "0, 'LM', 'Lager', 1, 1, 9, -1, 1, 'RE', ''",
                            "1, 'AF', 'Fertigung', 1, 1, 9, -1, 1, '', ''",
                            "7, 'RE', 'Rechnung West', 1, 1, 9, -1, 10, '', ''",
                            "9, 'XX', 'niemandes', 1, 1, 9, -1, 1, '', ''"})
    statements.push_back(values("Nummernkreise", range));
  for (const char* assignment : {"1, 'RE', 'ALL', 'ORB'", "1, 'RE', 'Weg', 'ORB'",
                                 "7, 'RE', 'ALL', 'ORC'", "7, 'RE', 'Anna', 'ORC'"})
    statements.push_back(values("Nummernkreis_Zuordnung", assignment));
  sql(statements);
  start(application, {"Anna", "Max"});
  open();
}

// All in one transaction, which is many times faster.
inline void SavingSession::sql(const Texts& statements) {
  Connection& connection = realConnection(*hostConnection());
  std::int32_t affected = 0;
  connection.BeginTrans();
  for (const std::string& statement : statements) connection.Execute(statement, affected);
  connection.CommitTrans();
}

inline Texts SavingSession::sent() {
  Texts all = sentAndRead();
  std::erase_if(all, [](const std::string& line) { return line.find(": SELECT ") == 4; });
  return all;
}

// As a dialog that has loaded everything.
inline void SavingSession::open() {
  std::int32_t found = 0;
  const auto records = realConnection(*hostConnection()).Execute(statement::ranges(), found);
  for (; !records->EndOfFile(); records->MoveNext())
    session().data().known.read(*rangeIdOf(*records));
  session().beginTransaction();
  session().blnChanged(true);
  sent();
}

inline void SavingSession::range(const std::string& user, std::int32_t circle,
                                 const std::string& key, std::int32_t start, const Value& active,
                                 const std::string& sharedWith) {
  row({.Benutzer = user,
       .Buchungskreis = circle,
       .Gruppe = "Gruppe",
       .NSchl = key,
       .NBezeichnung = "Belegart " + key,
       .StartWert = start,
       .AktuellerWert = start + 5,
       .EndWert = start + 9,
       .Aktiviert = active,
       .SortierIndex = 10,
       .IstNSchlVon = sharedWith,
       .Maske = "NN"});
}

inline void SavingSession::editedTable() {
  range("Max", 1, "RE", 0, true);
  range("Max", 0, "RE", 0, false);
  range("Anna", 0, "RE", 0, true);
  range(alleBenutzer, 0, "SO", 400, true, "RE");
  range(alleBenutzer, 0, "RE", 100, true);
  range(alleBenutzer, 1, "RE", 200, true);
  range(alleBenutzer, 2, "RE", 1, false);
  range(alleBenutzer, 8, "RE", 300, true);
}

inline bool SavingSession::save(bool askFirst) { return Save(askFirst); }

inline Texts SavingSession::storedRanges() {
  return select(
      "SELECT Buchungskreis, NSchl, NBezeichnung, StartWert, AktuellerWert, EndWert, Aktiviert, "
      "SortierIndex, IstNSchlVon, Maske FROM Nummernkreise ORDER BY Buchungskreis, NSchl");
}

inline Texts SavingSession::storedAssignments() {
  return select(
      "SELECT Buchungskreis, NSchl, Benutzer, Herkunft FROM Nummernkreis_Zuordnung "
      "ORDER BY Herkunft, Buchungskreis, NSchl, Benutzer");
}

inline Texts SavingSession::stored() {
  Texts all = storedRanges();
  for (const std::string& assignment : storedAssignments()) all.push_back(assignment);
  return all;
}

}  // namespace vexnumkr::test
