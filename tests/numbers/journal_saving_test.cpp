// Saving in the dialog while the journal is written.
#include <algorithm>

#include <vexnumkr/adapters.h>
#include <vexnumkr/number_journal.h>

#include "hosting/start_up.h"
#include "rules/saving_session.h"
#include "support/journal_scripts.h"

namespace vexnumkr {
namespace {

using test::Texts;

class JournalSavingTest : public test::SavingSession {
 protected:
  JournalSavingTest() : journal_(openQtSqlConnection(connectionString())) {
    test::runJournalScript(*journal_, database().schema(), "protokoll");
  }
  Texts changes() {
    Texts lines;
    numbers::readJournal(*journal_, {}, [&](const numbers::JournalEntry& entry) {
      for (const auto& [application, change] : entry.changes) {
        std::string line =
            std::string(1, "+~-"[static_cast<std::size_t>(change.kind)]) + change.what;
        for (const std::string& field : change.fields) line += " [" + field + "]";
        lines.push_back(line);
      }
    });
    return lines;
  }
  /// As the dialog does when its user presses OK without having changed anything.
  void openAndSave() {
    basAllgemein::basTerminate(session());
    start(1, {"Anna", "Max"});
    LoadItems();
    open();
    EXPECT_TRUE(save());
  }

 private:
  std::shared_ptr<Connection> journal_;
};

}  // namespace

TEST_F(JournalSavingTest, SavingStoresWhatItStoresWithoutTheJournal) {
  company();
  editedTable();
  EXPECT_TRUE(save());
  const Texts stored = SavingSession::stored();
  const Texts recorded = changes();
  EXPECT_FALSE(recorded.empty());
  EXPECT_NE(std::find(stored.begin(), stored.end(), "1|RE|Belegart RE|200|205|209|-1|10||NN"),
            stored.end());
}

TEST_F(JournalSavingTest, AnUnchangedSaveLeavesNoTrace) {
  company();
  session().rollBackTransaction();
  CoreSession::sql(
      "UPDATE Nummernkreise SET StartWert = Buchungskreis * 10 + 1, AktuellerWert = "
      "Buchungskreis * 10 + 2, EndWert = Buchungskreis * 10 + 9 WHERE NSchl <> 'SO'");
  CoreSession::sql(
      "UPDATE Nummernkreise SET StartWert = 400, AktuellerWert = 400, EndWert = 409 "
      "WHERE NSchl = 'SO'");
  openAndSave();
  const Texts before = changes();
  const Texts stored = SavingSession::stored();
  openAndSave();
  EXPECT_EQ(SavingSession::stored(), stored);
  EXPECT_EQ(changes(), before);
}

TEST_F(JournalSavingTest, ARefusedSaveLeavesNoTrace) {
  company();
  const Texts before = changes();
  const Texts stored = SavingSession::stored();
  editedTable();
  script().failStatement(6);  // something has been deleted and inserted by then
  EXPECT_FALSE(save());
  EXPECT_EQ(boxes().size(), 1U);
  EXPECT_EQ(SavingSession::stored(), stored);
  EXPECT_EQ(changes(), before);
}

}  // namespace vexnumkr
