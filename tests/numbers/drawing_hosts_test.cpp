// A host issues numbers all day while an administrator has the ranges open and saves: no number
// that it has told of is given away a second time, and what the administrator has changed is
// stored.
#include <QProcess>
#include <algorithm>

#include "hosting/saving.h"
#include "support/core_session.h"

namespace vexnumkr {
namespace {

constexpr int draws = 1000;
constexpr int longestRunMilliseconds = 100'000;

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

  void startDrawing() {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("VEXNUMKR_CONNECTION"),
                       QString::fromStdString(connectionString()));
    host_.setProcessEnvironment(environment);
    host_.start(QStringLiteral(DRAWING_PROGRAM),
                {QStringLiteral("Anna"), QStringLiteral("RE"), QString::number(draws)});
  }
  // Blocks until the host has told of that many numbers.
  void waitForDraws(int count) {
    while (drawn_ < count) {
      ASSERT_TRUE(host_.canReadLine() || host_.waitForReadyRead(longestRunMilliseconds))
          << host_.readAllStandardError().toStdString();
      while (host_.canReadLine()) {
        last_ = std::max(last_, host_.readLine().trimmed().toInt());
        ++drawn_;
      }
    }
  }
  std::int32_t storedCurrent() {
    return Value(select("SELECT AktuellerWert FROM Nummernkreise WHERE Buchungskreis=1 AND "
                        "NSchl='RE'")
                     .at(0))
        .toLong();
  }

  QProcess host_;
  int drawn_ = 0;
  std::int32_t last_ = 0;
};

TEST_F(DrawingHostsTest, NoDrawnNumberLiesAboveTheStoredCurrentValue) {
  startDrawing();
  waitForDraws(10);
  LoadItems();
  session().beginTransaction();
  std::int32_t end = 150;
  for (int saves = 0; drawn_ < draws; ++saves) {
    waitForDraws(std::min(draws, drawn_ + 100));
    SetValueAll("AN", 1, &RangeRow::EndWert, ++end);
    session().blnChanged(true);
    ASSERT_TRUE(Save(false)) << "attempt " << saves;
    EXPECT_GE(storedCurrent(), last_) << "drawn before the save";
    session().beginTransaction();
  }
  session().rollBackTransaction();
  ASSERT_TRUE(host_.waitForFinished(longestRunMilliseconds));
  EXPECT_EQ(host_.exitCode(), 0) << host_.readAllStandardError().toStdString();
  EXPECT_EQ(storedCurrent(), 1000 + draws) << "every number once, and none left out";
  EXPECT_EQ(last_, 1000 + draws);
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
  startDrawing();
  waitForDraws(100);
  SetValueAll("AN", 1, &RangeRow::EndWert, 150);
  session().blnChanged(true);
  EXPECT_TRUE(Save(false));
  EXPECT_GE(storedCurrent(), last_) << "drawn before the save";
  waitForDraws(draws);
  ASSERT_TRUE(host_.waitForFinished(longestRunMilliseconds));
  EXPECT_EQ(storedCurrent(), 1000 + draws);
  EXPECT_EQ(select("SELECT Beschreibung FROM Nummernkreis_Buchungskreise"),
            std::vector<std::string>{"Norden"});
}

}  // namespace
}  // namespace vexnumkr
