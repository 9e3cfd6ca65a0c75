// Whatever keeps the database from storing what a save sends: the save fails, in the engine's words
// or because reading back finds it out, nothing is stored, and once the cause is gone the next one
// stores everything. No save reports success while something is missing or different.
#include <algorithm>
#include <cctype>
#include <iostream>
#include <map>
#include <memory>
#include <string_view>
#include <utility>

#include <vexnumkr/adapters.h>

#include "hosting/start_up.h"
#include "rules/refused_row_classes.h"
#include "rules/saving_session.h"

namespace vexnumkr::test {
namespace {

constexpr const char* password = "Geheim4711";

struct RefusedRowCase {
  std::string name;
  std::string engine;
  Cause cause;
};

void PrintTo(const RefusedRowCase& tried, std::ostream* out) { *out << tried.name; }

std::string schemaUnderTest() {
  const std::string engine = engineUnderTest();
  return engine.substr(engine.find('-') + 1);
}

std::vector<std::string> enginesUnderTest() {
  const std::string schema = schemaUnderTest();
  return schema == "mariadb" ? Texts{schema, notStrict} : Texts{schema};
}

std::vector<RefusedRowCase> casesOfTheEngine() {
  std::vector<RefusedRowCase> cases;
  for (const std::string& engine : enginesUnderTest())
    for (const RefusedRowClass& one : refusedRowClasses())
      if (const auto found = one.causes.find(engine); found != one.causes.end())
        cases.push_back({one.name, engine, found->second});
  return cases;
}

std::string testName(const ::testing::TestParamInfo<RefusedRowCase>& info) {
  std::string name = info.param.name + (info.param.engine == notStrict ? " not strict" : "");
  std::ranges::replace_if(
      name, [](unsigned char letter) { return std::isalnum(letter) == 0; }, '_');
  return name;
}

std::string described(Outcome outcome) {
  switch (outcome) {
    case Outcome::refused:
      return "refused by the engine";
    case Outcome::notAsWritten:
      return "3022";
    case Outcome::saved:
      return "everything stored";
  }
  return {};
}

class RefusedRowsTest : public SavingSession, public ::testing::WithParamInterface<RefusedRowCase> {
 public:
  /// The table of classes and what saves have come to.
  static void TearDownTestSuite() {
    for (const std::string& engine : enginesUnderTest()) {
      std::cout << "\nRefused rows on " << engineUnderTest()
                << (engine == notStrict ? ", not strict" : "") << "\n";
      for (const RefusedRowClass& one : refusedRowClasses()) {
        const auto found = outcomes().find({engine, one.name});
        if (found != outcomes().end()) std::cout << one.name << ": " << found->second << "\n";
        if (!one.causes.contains(engine)) std::cout << one.name << ": not on this engine\n";
      }
    }
  }

 protected:
  void SetUp() override {
    company();
    spared_ = stored();
    std::erase_if(spared_, [](const std::string& line) {
      return !line.starts_with("0|LM|") && !line.starts_with("1|AF|") && !line.starts_with("7|RE|");
    });
    session().rollBackTransaction();
    saving_ = hostConnection();
    if (cause().asUser) saveAsUser();
    arrange(cause().arrange);
    if (GetParam().engine == notStrict) acceptWhatDoesNotFit();
    session().beginTransaction();
    session().blnChanged(true);
    editedTable();
    change(table().findCircle(2), [this](RangeRow& row) {
      row.NBezeichnung = table().text("Belegart mit langer Bezeichnung");
      row.StartWert = Cell(40000);
      row.AktuellerWert = Cell(40005);
      row.EndWert = Cell(40009);
    });
    table().sort(RowOrder::display);
  }
  void TearDown() override {
    if (cause().asUser) removeUser();
    SavingSession::TearDown();
  }

  const Cause& cause() const { return GetParam().cause; }
  void arrange(const Texts& statements) {
    for (std::string statement : statements) {
      constexpr std::string_view mark = "{user}";
      if (const std::size_t at = statement.find(mark); at != std::string::npos)
        statement.replace(at, mark.size(), user());
      CoreSession::sql(statement);
    }
  }
  void removeTheCause() {
    session().rollBackTransaction();
    arrange(cause().remove);
    session().beginTransaction();
  }

  // What the save has come to, from its one box.
  Outcome saveAndTell() {
    const bool isSaved = save();
    const auto raised = boxes();
    EXPECT_EQ(raised.size(), isSaved ? 0U : 1U);
    for (const Box& box : raised)
      EXPECT_TRUE(box.prompt.starts_with("basAllgemein\r\nSave: ")) << box.prompt;
    const bool isReadBack = !raised.empty() && raised.front().title == "Fehler 3022";
    const Outcome outcome = isSaved      ? Outcome::saved
                            : isReadBack ? Outcome::notAsWritten
                                         : Outcome::refused;
    outcomes()[{GetParam().engine, GetParam().name}] = described(outcome);
    return outcome;
  }

  // By the range table, what the save leaves alone, and nothing else.
  Texts expected() {
    Texts all = spared_;
    for (const RangeRow& row : table()) {
      const std::string key = std::to_string(row.Buchungskreis) + "|" + row.NSchl.str() + "|";
      if (row.isCommon())
        all.push_back(key + row.NBezeichnung.str() + "|" + row.StartWert.toText() + "|" +
                      row.AktuellerWert.toText() + "|" + row.EndWert.toText() + "|" +
                      (row.Aktiviert ? "-1" : "0") + "|" + std::to_string(row.SortierIndex) + "|" +
                      row.IstNSchlVon.str() + "|" + row.Maske.toText());
      if (row.Aktiviert)
        all.push_back(key + (row.isCommon() ? "ALL" : row.Benutzer.str()) + "|ORB");
    }
    std::ranges::sort(all);
    return all;
  }
  Texts sortedAndStored() {
    Texts all = stored();
    std::ranges::sort(all);
    return all;
  }

 private:
  static std::map<std::pair<std::string, std::string>, std::string>& outcomes() {
    static std::map<std::pair<std::string, std::string>, std::string> found;
    return found;
  }

  std::string user() { return database().name() + "_u"; }
  void acceptWhatDoesNotFit() {
    std::int32_t affected = 0;
    realConnection(*saving_).Execute("SET SESSION sql_mode = 'NO_BACKSLASH_ESCAPES,ANSI_QUOTES'",
                                     affected);
  }
  void saveAsUser() {
    const bool onMariadb = database().engine() == "mariadb";
    database().administer(onMariadb ? "CREATE USER " + user() + " IDENTIFIED BY '" + password + "'"
                                    : "CREATE ROLE " + user() + " LOGIN");
    for (const char* const each :
         {"Nummernkreise", "Nummernkreis_Buchungskreise", "Nummernkreis_Zuordnung",
          "Nummernkreis_Sonderkreise", "tblUser"})
      CoreSession::sql(std::string("GRANT SELECT, INSERT, UPDATE, DELETE ON ") + each + " TO " +
                       user());
    basAllgemein::basTerminate(session());
    saving_ = openQtSqlConnection(database().connectionString(user(), password));
    session().Conn(saving_);
    basAllgemein::basInititialize(session());
    RefreshCombo();
    open();
    session().rollBackTransaction();
  }
  void removeUser() {
    basAllgemein::basTerminate(session());
    session().Conn(hostConnection());
    saving_.reset();
    if (database().engine() == "mariadb") {
      database().administer("DROP USER " + user());
    } else {
      CoreSession::sql("DROP OWNED BY " + user());
      database().administer("DROP ROLE " + user());
    }
  }

  Texts spared_;  // stored, and none of the save's business
  std::shared_ptr<Connection> saving_;
};

TEST_P(RefusedRowsTest, NothingIsReportedAsSavedThatIsNot) {
  const Texts before = stored();
  const Texts values = rows();
  const Texts after = expected();
  ASSERT_EQ(after.size(), 16U);
  const Outcome outcome = saveAndTell();
  EXPECT_EQ(described(outcome), described(cause().outcome));
  if (outcome != Outcome::saved) {
    EXPECT_EQ(stored(), before);
    EXPECT_EQ(rows(), values);
    EXPECT_TRUE(session().blnChanged());
    removeTheCause();
    EXPECT_TRUE(save());
  }
  EXPECT_EQ(sortedAndStored(), after);
}

INSTANTIATE_TEST_SUITE_P(Every, RefusedRowsTest, ::testing::ValuesIn(casesOfTheEngine()), testName);

}  // namespace
}  // namespace vexnumkr::test
