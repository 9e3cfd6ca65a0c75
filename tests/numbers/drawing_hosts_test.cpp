// A host issues numbers all day while an administrator has the ranges open and saves: no number
// that it has told of is given away a second time, and what the administrator has changed is
// stored.
#include "hosting/saving.h"
#include "support/core_session.h"
#include "support/drawing_process.h"

namespace vexnumkr {
namespace {

constexpr int draws = 1000;

class DrawingHostsTest : public test::CoreSession {
 protected:
  void SetUp() override {
    sql("INSERT INTO tblUser VALUES ('Anna')");
    sql("INSERT INTO Nummernkreis_Buchungskreise VALUES (1, 'Nord', 'ORB')");
    for (const char* range : {"0, 'RE', 'Rechnung', 1, 1, 9, -1, 10, '', ''",
                              "0, 'AN', 'Angebot', 1, 1, 9, -1, 20, '', ''",
                              "1, 'RE', 'Rechnung', 1000, 1000, 999999, -1, 10, '', ''",
                              "1, 'AN', 'Angebot', 100, 100, 199, -1, 20, '', ''"})
      sql(std::string("INSERT INTO Nummernkreise VALUES (") + range + ")");
    for (const char* assignment : {"1, 'RE', 'Anna', 'ORB'", "1, 'RE', 'ALL', 'ORB'"})
      sql(std::string("INSERT INTO Nummernkreis_Zuordnung VALUES (") + assignment + ")");
    start(1, {"Anna"});
  }

  test::DrawingProcess startDrawing() { return {connectionString(), "Anna", "RE", draws}; }
  std::int32_t storedCurrent() {
    return Value(select("SELECT AktuellerWert FROM Nummernkreise WHERE Buchungskreis=1 AND "
                        "NSchl='RE'")
                     .at(0))
        .toLong();
  }
};

TEST_F(DrawingHostsTest, NoDrawnNumberLiesAboveTheStoredCurrentValue) {
  test::DrawingProcess host = startDrawing();
  host.waitForMore(10);
  LoadItems();
  session().beginTransaction();
  std::int32_t end = 150;
  for (int saves = 0; !host.isDone(); ++saves) {
    host.waitForMore(100);
    SetValueAll("AN", 1, &RangeRow::EndWert, ++end);
    session().blnChanged(true);
    ASSERT_TRUE(Save(false)) << "attempt " << saves;
    EXPECT_GE(storedCurrent(), host.last()) << "drawn before the save";
    session().beginTransaction();
  }
  session().rollBackTransaction();
  host.waitForAll();
  EXPECT_EQ(storedCurrent(), 1000 + draws) << "every number once, and none left out";
  EXPECT_EQ(host.last(), 1000 + draws);
  EXPECT_EQ(select("SELECT EndWert FROM Nummernkreise WHERE Buchungskreis=1 AND NSchl='AN'"),
            std::vector<std::string>{std::to_string(end)});
}

// The transaction has begun before the numbers are drawn, since it changes the circles.
TEST_F(DrawingHostsTest, NumbersAreDrawnWhileTheCirclesHaveBeenChanged) {
  if (database().engine().ends_with("sqlite")) GTEST_SKIP() << "there is one writer at a time";
  LoadItems();
  session().beginTransaction();
  std::int32_t found = 0;
  test::realConnection(*hostConnection())
      .Execute("UPDATE Nummernkreis_Buchungskreise SET Beschreibung='Norden'", found);
  test::DrawingProcess host = startDrawing();
  host.waitForMore(100);
  SetValueAll("AN", 1, &RangeRow::EndWert, 150);
  session().blnChanged(true);
  EXPECT_TRUE(Save(false));
  EXPECT_GE(storedCurrent(), host.last()) << "drawn before the save";
  host.waitForAll();
  EXPECT_EQ(storedCurrent(), 1000 + draws);
  EXPECT_EQ(select("SELECT Beschreibung FROM Nummernkreis_Buchungskreise"),
            std::vector<std::string>{"Norden"});
}

}  // namespace
}  // namespace vexnumkr
