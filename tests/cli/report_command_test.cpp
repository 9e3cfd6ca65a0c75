// "vexnumkr report" on every engine: its figures are read back from the page.
#include <gtest/gtest.h>

#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>

#include "cli/program_database.h"

namespace vexnumkr::test {
namespace {

using Lines = std::vector<std::string>;

class ReportCommandTest : public ProgramDatabase {
 protected:
  ReportCommandTest() {
    circle(1, "Werk <Süd>");
    circle(2, "Ost");
    range(0, "RE", 1, 50, 100);
    range(1, "RE", 201, 291, 301, {.description = "Rechnung & \"Co\""});
    range(2, "RE", 302, 402, 402);
    range(1, "AN", 1, 1, 9, {.active = false});
    user("Anna");
    assign("ALL", 0, "RE");
    assign("Anna", 1, "RE");
  }
  QString report() {
    const QString file = folder_.filePath(QStringLiteral("bericht.html"));
    printed({"report", "--application", "1", "--date", "20261121", "-o", file.toStdString()});
    QFile opened(file);
    EXPECT_TRUE(opened.open(QIODevice::ReadOnly));
    return QString::fromUtf8(opened.readAll());
  }
  static Lines found(const QString& page, const char* pattern) {
    const QRegularExpression expression(QString::fromUtf8(pattern),
                                        QRegularExpression::DotMatchesEverythingOption);
    EXPECT_TRUE(expression.isValid());
    Lines lines;
    for (auto matches = expression.globalMatch(page); matches.hasNext();) {
      const QStringList captured = matches.next().capturedTexts();
      lines.push_back(captured.mid(1).join(QLatin1Char('|')).toStdString());
    }
    return lines;
  }

  QTemporaryDir folder_;
};

TEST_F(ReportCommandTest, ItsFiguresAreThoseOfTheDatabase) {
  const QString page = report();
  EXPECT_EQ(found(page, R"re(data-key="(\w+)" data-circle="(\d+)" data-start="(\d+)" )re"
                        R"re(data-current="(\d+)" data-end="(\d+)" data-left="(\d+)")re"),
            rows("SELECT NSchl, Buchungskreis, StartWert, AktuellerWert, EndWert, EndWert - "
                 "AktuellerWert AS Frei FROM Nummernkreise WHERE NSchl = 'RE' ORDER BY "
                 "Buchungskreis",
                 {"NSchl", "Buchungskreis", "StartWert", "AktuellerWert", "EndWert", "Frei"}));
  EXPECT_EQ(found(page, R"re(<tr class="(\w+)" data-key)re"),
            (Lines{"fine", "warning", "critical"}));
  EXPECT_EQ(found(page, R"re(<div class="bar"><span style="width:([\d.]+)%">)re"),
            (Lines{"49.4", "90.0", "100.0"}));
  EXPECT_EQ(found(page, R"re(data-critical="(\d+)" data-warnings="(\d+)")re"), Lines{"1|2"});
}

TEST_F(ReportCommandTest, SequencesShowTheirRangesAndWhatIsFree) {
  EXPECT_EQ(found(report(), R"re(<li class="(range|gap)[^"]*">([^<]*))re"),
            (Lines{"range|1–100", "gap|100 frei", "range|201–301", "range|302–402"}));
}

TEST_F(ReportCommandTest, SequencesAreLinesToScale) {
  EXPECT_EQ(found(report(), R"re(style="left:([\d.]+)%;width:([\d.]+)%" title="([\d–]+) )re"
                            R"re([^"]*"><i style="width:([\d.]+)%">)re"),
            (Lines{"0.000|24.688|1–100|49.495", "49.875|24.938|201–301|90.000",
                   "75.062|24.938|302–402|100.000"}));
}

TEST_F(ReportCommandTest, CirclesInARowAreShort) {
  for (int number : {1, 2, 4, 5, 6, 8}) assign("Max", number, "RE");
  EXPECT_EQ(found(report(), R"re(<tr data-user="(Max)">.*?<b>(\w+)</b>: ([\d– ]+)</span>)re"),
            Lines{"Max|RE|1 2 4–6 8"});
}

TEST_F(ReportCommandTest, UsersHaveTheirRanges) {
  EXPECT_EQ(found(report(), R"re(<tr data-user="(\w+)">.*?<b>(\w+)</b>: ([\d–, ]+)</span>)re"),
            (Lines{"ALL|RE|0", "Anna|RE|1"}));
}

TEST_F(ReportCommandTest, ItNeedsNothingElseAndTextsStayTexts) {
  const QString page = report();
  EXPECT_FALSE(page.contains(QLatin1String("<script")));
  EXPECT_FALSE(page.contains(QRegularExpression(QStringLiteral("(src|href)="))));
  EXPECT_FALSE(page.contains(QLatin1String("http")));
  EXPECT_FALSE(page.contains(QLatin1String("<Süd>")));
  EXPECT_TRUE(page.contains(QStringLiteral("Werk &lt;Süd&gt;")));
  EXPECT_TRUE(page.contains(QLatin1String("Rechnung &amp; &quot;Co&quot; (RE)")));
}

TEST_F(ReportCommandTest, BrokenRangesStandAmongTheOthers) {
  range(0, "AN", 5, 9, 7);
  range(1, "LS", 1, 1, 9);
  sql("UPDATE Nummernkreise SET AktuellerWert = NULL WHERE NSchl = 'LS'");
  EXPECT_EQ(
      found(report(), R"re(<tr class="(\w+)" data-key="(\w+)" data-circle="(\d+)" data-broken)re"),
      (Lines{"critical|AN|0", "critical|LS|1"}));
  EXPECT_EQ(found(report(), R"re((fehlt|fehlerhaft)<)re"),
            (Lines{"fehlerhaft", "fehlt", "fehlerhaft"}));
}

TEST_F(ReportCommandTest, BothRangesOfAnOverlapAreMarkedAndWhatIsSwitchedOffIsNot) {
  range(3, "RE", 90, 90, 120);
  circle(3, "West");
  range(1, "RX", 310, 310, 320, {.sharedKey = "RE"});
  special("RX", "RE", false);
  EXPECT_EQ(
      found(report(), R"re(<li class="(range[^"]*)">([^<]*))re"),
      (Lines{"range overlap|1–100", "range overlap|90–120", "range|201–301", "range|302–402"}));
}

TEST_F(ReportCommandTest, LevelsAreRoundedDownAndTextsHaveNoControls) {
  sql("DELETE FROM Nummernkreise");
  range(0, "RE", 0, 99999, 100000, {.description = "Rech\x1bnung"});
  const QString page = report();
  EXPECT_EQ(
      found(page, R"re(<div class="bar"><span style="width:([\d.]+)%"></span></div>([\d,]+))re"),
      Lines{"99.9|99,9"});
  EXPECT_TRUE(page.contains(QStringLiteral("Rech nung (RE)")));
}

TEST_F(ReportCommandTest, SaysWhenItWasMadeAndByWhichDay) {
  EXPECT_EQ(found(report(),
                  R"re(erstellt am (\d)\d\.\d\d\.2\d{3} \d\d:\d\d Uhr · Masken nach dem (\S+)<)re")
                .size(),
            1U);
}

TEST_F(ReportCommandTest, AReportThatCannotBeMadeLeavesTheOldOne) {
  const std::string file = folder_.filePath(QStringLiteral("Bericht.PDF")).toStdString();
  QFile old(QString::fromStdString(file));
  ASSERT_TRUE(old.open(QIODevice::WriteOnly));
  old.write("alt");
  old.close();
  const ProgramRun run =
      vexnumkr({"report", "--application", "1", "-o", file}, {{"PATH", "/nirgends"}});
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_EQ(run.errors,
            "vexnumkr: Für PDF wird Chromium gebraucht, und es ist nicht installiert. Als .html "
            "geht es ohne.\n");
  ASSERT_TRUE(old.open(QIODevice::ReadOnly));
  EXPECT_EQ(old.readAll(), "alt");
  printed({"report", "--application", "1", "-o",
           folder_.filePath(QStringLiteral("Bericht.HTML")).toStdString()});
}

TEST_F(ReportCommandTest, WhereItCannotBeWrittenItSaysSo) {
  const ProgramRun run = vexnumkr({"report", "--application", "1", "-o", "/nirgends/x.html"});
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_EQ(run.errors, "vexnumkr: Die Datei /nirgends/x.html ist nicht zu schreiben.\n");
}

}  // namespace
}  // namespace vexnumkr::test
