// A save that fails, wherever it does: the failure is shown, the database is as before, the table
// keeps the user's values, and the next save saves everything.
#include <algorithm>
#include <optional>

#include "hosting/start_up.h"
#include "rules/saving_session.h"

namespace vexnumkr {
namespace {

using test::errorBox;
using test::Texts;
using Boxes = std::vector<test::Box>;

// Fails the statement of a number and, where that is the insert of a range, also its update.
class FailingCommand final : public Command {
 public:
  FailingCommand(std::unique_ptr<Command> real, int failing)
      : real_(std::move(real)), failing_(failing) {}
  void ActiveConnection(Connection& connection) override { real_->ActiveConnection(connection); }
  void CommandType(std::int32_t type) override { real_->CommandType(type); }
  void CommandTimeout(std::int32_t seconds) override { real_->CommandTimeout(seconds); }
  void CommandText(const std::string& text) override {
    isUpdate_ = text.starts_with("UPDATE");
    real_->CommandText(text);
  }
  std::unique_ptr<Recordset> Execute(std::int32_t& recordsAffected) override {
    if (++statements_ == failing_ || (statements_ == failing_ + 1 && isUpdate_))
      test::ConnectionScript::failOnPurpose();
    return real_->Execute(recordsAffected);
  }

 private:
  std::unique_ptr<Command> real_;
  int failing_;
  int statements_ = 0;
  bool isUpdate_ = false;
};

class SavingFailureTest : public test::SavingSession {
 protected:
  std::unique_ptr<Command> newCommand() {
    auto command = session().Conn().createCommand();
    command->ActiveConnection(session().Conn());
    return command;
  }
  void failStatement(int number) {
    session().source().cmdSQL(std::make_unique<FailingCommand>(newCommand(), number));
  }
  static test::Box failure() {
    return errorBox(test::deliberateErrorNumber, "basAllgemein", "Save", test::deliberateErrorText);
  }

  // What a save without failures leaves stored.
  Texts storedBySaving() {
    EXPECT_TRUE(save());
    statementCount_ =
        static_cast<int>(std::ranges::count_if(sentAndRead(), [](const std::string& line) {
          return line.starts_with("conn: ") && line != "conn: COMMIT";
        }));
    return stored();
  }
  void restore(const Texts& before) {
    basAllgemein::basTerminate(session());
    company();
    EXPECT_EQ(stored(), before);
    editedTable();
  }

  // The whole story of a failure that `fail` arranges for.
  template <class Fail>
  void failAndSaveAgain(const Texts& before, const Texts& after, Fail fail) {
    table().sort(RowOrder::display);
    const Texts values = rows();
    fail();
    EXPECT_FALSE(save());
    EXPECT_EQ(boxes(), Boxes{failure()});
    const Texts statements = sent();
    ASSERT_GE(statements.size(), 2U);
    EXPECT_EQ(statements[statements.size() - 2], "conn: ROLLBACK");
    EXPECT_EQ(statements.back(), "conn: BEGIN");
    EXPECT_EQ(stored(), before);
    EXPECT_EQ(rows(), values);
    EXPECT_TRUE(session().blnChanged());
    session().source().cmdSQL(newCommand());
    EXPECT_TRUE(save());
    EXPECT_EQ(sent().back(), "conn: COMMIT");
    EXPECT_EQ(stored(), after);
  }

  int statementCount_ = 0;
};

TEST_F(SavingFailureTest, EveryStatementMayFail) {
  company();
  const Texts before = stored();
  editedTable();
  const Texts after = storedBySaving();
  ASSERT_NE(before, after);
  // The two updates stand for inserts that fail by themselves.
  ASSERT_EQ(statementCount_, 18);
  for (int number = 1; number <= statementCount_; ++number) {
    SCOPED_TRACE("statement " + std::to_string(number));
    restore(before);
    failAndSaveAgain(before, after, [&] { failStatement(number); });
  }
}

TEST_F(SavingFailureTest, TheCommitMayFail) {
  company();
  const Texts before = stored();
  editedTable();
  const Texts after = storedBySaving();
  restore(before);
  failAndSaveAgain(before, after, [this] { script().failCommit(); });
}

TEST_F(SavingFailureTest, SeveralAttemptsMayFailInARow) {
  company();
  const Texts before = stored();
  editedTable();
  for (const int number : {1, 2, 5, 9}) {
    failStatement(number);
    EXPECT_FALSE(save());
    EXPECT_EQ(boxes(), Boxes{failure()});
    EXPECT_EQ(stored(), before);
  }
  session().source().cmdSQL(newCommand());
  EXPECT_TRUE(save());
}

TEST_F(SavingFailureTest, AQuoteInADescriptionFailsTheWholeSave) {
  company();
  const Texts before = stored();
  editedTable();
  change(3, [this](RangeRow& row) { row.NBezeichnung = table().text("Sonder's"); });
  EXPECT_FALSE(save());
  const auto raised = boxes();
  ASSERT_EQ(raised.size(), 1U);
  EXPECT_TRUE(raised[0].prompt.starts_with("basAllgemein\r\nSave: ")) << raised[0].prompt;
  EXPECT_EQ(raised[0].buttons, 48);
  const Texts statements = sent();
  ASSERT_GE(statements.size(), 4U);
  const auto fromEnd = [&](std::size_t n) { return statements[statements.size() - n]; };
  EXPECT_TRUE(fromEnd(4).starts_with("conn: INSERT INTO Nummernkreise (")) << fromEnd(4);
  EXPECT_TRUE(fromEnd(4).ends_with(" !failed"));
  EXPECT_TRUE(fromEnd(3).starts_with("conn: UPDATE Nummernkreise SET NBezeichnung='Sonder's', "));
  EXPECT_TRUE(fromEnd(3).ends_with(" !failed"));
  EXPECT_EQ(stored(), before);
  const std::int32_t quoted = table().findNumberKey("SO");
  EXPECT_EQ(table().at(quoted).NBezeichnung, "Sonder's") << "the user's value is kept";
  change(quoted, [this](RangeRow& row) { row.NBezeichnung = table().text("Sonders"); });
  EXPECT_TRUE(save());
  const Texts ranges = storedRanges();
  EXPECT_EQ(std::ranges::count(ranges, "0|SO|Sonders|400|405|409|-1|10|RE|NN"), 1);
}

TEST_F(SavingFailureTest, AQuoteInAUserNameFailsTheWholeSave) {
  company();
  const Texts before = stored();
  range("O'Hara", 1, "RE", 1, true);
  EXPECT_FALSE(save());
  EXPECT_EQ(boxes().size(), 1U);
  EXPECT_EQ(stored(), before);
}

// A row that is not tested by the rules, so that the save itself comes across the value.
class UnreadableRowTest : public SavingFailureTest {
 protected:
  void fails(ValueColumn column, const Value& value, std::int32_t number,
             const std::string& description) {
    range(alleBenutzer, 1, "RE", 1, false);
    table().setValue(0, column, value);
    EXPECT_FALSE(save());
    EXPECT_EQ(boxes(), Boxes{errorBox(number, "basAllgemein", "Save", description)});
    EXPECT_EQ(sent().size(), 4U) << "two deletes, the roll-back and the new transaction";
    EXPECT_EQ((table().at(0).*column).toValue(), value);
    table().remove(0);
  }
};

TEST_F(UnreadableRowTest, NoStatementIsTriedForIt) {
  company();
  const Texts before = stored();
  for (const ValueColumn column :
       {&RangeRow::StartWert, &RangeRow::AktuellerWert, &RangeRow::EndWert}) {
    fails(column, "zehn", 13, "Typen unverträglich");
    fails(column, "3.000.000.000", 6, "Überlauf");
  }
  EXPECT_EQ(stored(), before);
}

TEST_F(UnreadableRowTest, AValueThatTheRulesStumbleOverIsReportedByBoth) {
  company();
  const Texts before = stored();
  range(alleBenutzer, 1, "AN", 1, true);
  range(alleBenutzer, 1, "RE", 1, true);
  table().setValue(1, &RangeRow::StartWert, "zehn");
  EXPECT_FALSE(save());
  EXPECT_EQ(boxes(), (Boxes{errorBox(13, "basAllgemein", "CheckValidity", "Typen unverträglich"),
                            errorBox(13, "basAllgemein", "Save", "Typen unverträglich")}));
  EXPECT_EQ(sent().size(), 6U) << "the row before it had been written";
  EXPECT_EQ(stored(), before);
}

TEST_F(SavingFailureTest, WithoutCommandItIsReported) {
  company();
  session().source().cmdSQL(nullptr);
  EXPECT_FALSE(save());
  EXPECT_EQ(boxes(),
            Boxes{errorBox(91, "basAllgemein", "Save", "Objektvariable nicht festgelegt")});
  EXPECT_EQ(sent(), (Texts{"conn: ROLLBACK", "conn: BEGIN"}));
}

// A message facility that notes what had been sent when it was called.
class WatchingHost final : public HostMessages, public HostTexts {
 public:
  explicit WatchingHost(test::ConnectionScript& script) : script_(script) {}
  std::optional<Texts> sentWhenShown;

  Value Prepare(const Value&, std::int16_t, const std::optional<Value>&) override { return {}; }
  std::int32_t Show(const Value&, std::int16_t, const std::optional<Value>&, std::int32_t,
                    const std::optional<Value>&, bool) override {
    sentWhenShown = script_.takeStatements();
    return msg_box::ok;
  }
  std::string Text(std::int32_t, const std::vector<Value>&) override { return {}; }
  PictureData Picture(std::int32_t) override { return {}; }

 private:
  test::ConnectionScript& script_;
};

TEST_F(SavingFailureTest, TheFailureIsShownBeforeItIsUndone) {
  company();
  WatchingHost watching(script());
  host().messages = &watching;
  host().texts = &watching;
  script().failStatement(2);
  EXPECT_FALSE(save());
  ASSERT_TRUE(watching.sentWhenShown.has_value());
  EXPECT_EQ(watching.sentWhenShown->size(), 2U) << "the two deletes";
  EXPECT_EQ(sent(), (Texts{"conn: ROLLBACK", "conn: BEGIN"}));
}

}  // namespace
}  // namespace vexnumkr
