// "vexnumkr gaps" on every engine.
#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include "cli/program_database.h"

namespace vexnumkr::test {
namespace {

class GapsCommandTest : public ProgramDatabase {
 protected:
  GapsCommandTest() {
    circle(1, "Werk");
    range(1, "RE", 100, 110, 199);
    sql("CREATE TABLE Belege (Nr INTEGER)");
    for (const char* number :
         {"101", "102", "105", "105", "106", "107", "108", "109", "110", "112", "7", "NULL"})
      sql(std::string("INSERT INTO Belege VALUES (") + number + ")");
  }
  std::vector<std::string> gaps(const std::vector<std::string>& further) {
    std::vector<std::string> arguments = {"gaps", "--application", "1", "--key", "RE"};
    arguments.insert(arguments.end(), further.begin(), further.end());
    return arguments;
  }
  std::string file(const std::string& lines) {
    QFile written(folder_.filePath(QStringLiteral("nummern.txt")));
    EXPECT_TRUE(written.open(QIODevice::WriteOnly));
    written.write(QByteArray::fromStdString(lines));
    return written.fileName().toStdString();
  }

 private:
  QTemporaryDir folder_;
};

TEST_F(GapsCommandTest, ComparesWhatASelectFinds) {
  EXPECT_EQ(printed(gaps({"--numbers-from", "SELECT Nr AS Nummer FROM Belege ; "}), 1),
            "Nummernkreis \"RE\", Werk (vergeben 101–110):\n"
            "  Lücke: 103–104 (2 Nummern)\n"
            "  noch nicht vergeben: 112\n"
            "mehrfach: 105\n"
            "in keinem Nummernkreis: 7\n"
            "11 Nummern gelesen, 1 Lücke mit 2 Nummern, 1 noch nicht vergeben, 1 mehrfach, "
            "1 in keinem Nummernkreis.\n");
}

TEST_F(GapsCommandTest, PrintsAnObjectALine) {
  EXPECT_EQ(printed(gaps({"--numbers-from", "select Nr AS Nummer FROM Belege", "--json"}), 1),
            R"({"kind":"gap","first":103,"last":104,"count":2,"key":"RE","circle":1})"
            "\n"
            R"({"kind":"ahead","first":112,"last":112,"count":1,"key":"RE","circle":1})"
            "\n"
            R"({"kind":"duplicate","first":105,"last":105,"count":1})"
            "\n"
            R"({"kind":"stray","first":7,"last":7,"count":1})"
            "\n"
            R"({"kind":"summary","numbers":11,"gaps":1,"missing":2,"ahead":1,"duplicates":1,)"
            R"("strays":1,"unreadable":0,"skipped":0})"
            "\n");
}

TEST_F(GapsCommandTest, ComparesALineEachOfAFile) {
  const std::string complete = file("101\r\n102\n103\n104\n105\n\n106\n107\n 108 \n109\n110");
  EXPECT_EQ(printed(gaps({"--numbers-from", complete})),
            "10 Nummern gelesen: keine Lücke, keine doppelt, alle im Nummernkreis.\n");
  const std::string torn = file("101\nRE-102\n99999999999\n");
  EXPECT_EQ(printed(gaps({"--numbers-from", torn}), 1),
            "Zeile 2 ist keine Nummer: RE-102\n"
            "Zeile 3 ist keine Nummer: 99999999999\n"
            "Nummernkreis \"RE\", Werk (vergeben 101–110):\n"
            "  Lücke: 102–110 (9 Nummern)\n"
            "1 Nummer gelesen, 1 Lücke mit 9 Nummern, 2 unlesbar.\n");
}

TEST_F(GapsCommandTest, OfALineThatIsNoNumberTheBeginningIsShownAndNothingForTheTerminal) {
  const std::string binary = file("\x1b[2J\n" + std::string(255, 'x') + "äy\n101\n");
  EXPECT_EQ(printed(gaps({"--numbers-from", binary}), 1),
            "Zeile 1 ist keine Nummer: ?[2J\n"
            "Zeile 2 ist keine Nummer: " +
                std::string(255, 'x') +
                "\n"
                "Nummernkreis \"RE\", Werk (vergeben 101–110):\n"
                "  Lücke: 102–110 (9 Nummern)\n"
                "1 Nummer gelesen, 1 Lücke mit 9 Nummern, 2 unlesbar.\n");
}

TEST_F(GapsCommandTest, KnowsASelectHoweverItBegins) {
  for (const char* const begin :
       {" ", "\n\t", "-- die Belege\n", "/* die Belege */ ", "WITH B AS (SELECT Nr FROM Belege) "})
    EXPECT_EQ(
        vexnumkr(gaps({"--numbers-from", begin + std::string("sElEcT Nr AS Nummer FROM Belege")}))
            .exitCode,
        1)
        << begin;
  EXPECT_EQ(vexnumkr(gaps({"--numbers-from", "(SELECT Nr AS Nummer FROM Belege)"})).exitCode, 1);
  EXPECT_EQ(vexnumkr(gaps({"--numbers-from", "selects.txt"})).errors,
            "vexnumkr: Die Datei selects.txt ist nicht zu lesen.\n");
}

TEST_F(GapsCommandTest, NamesWhatIsNoNumberInASelectToo) {
  sql("CREATE TABLE Texte (Nr VARCHAR(20))");
  const auto refused = [&](const std::string& table, const std::string& text) {
    return printed(gaps({"--numbers-from", "SELECT Nr AS Nummer FROM " + table}), 1)
        .starts_with("Zeile 1 ist keine Nummer: " + text +
                     "\nNummernkreis \"RE\", Werk (vergeben 101–110):\n");
  };
  for (const char* const text : {"RE-102", "99999999999", "102x"}) {
    sql("DELETE FROM Texte");
    sql(std::string("INSERT INTO Texte VALUES ('") + text + "')");
    EXPECT_TRUE(refused("Texte", text)) << text;
  }
  sql("DELETE FROM Texte");
  for (const char* const text : {"'101'", "'+102'", "' 103 '", "NULL"})
    sql(std::string("INSERT INTO Texte VALUES (") + text + ")");
  EXPECT_TRUE(printed(gaps({"--numbers-from", "SELECT Nr AS Nummer FROM Texte"}), 1)
                  .ends_with("3 Nummern gelesen, 1 Lücke mit 7 Nummern.\n"));
  sql("CREATE TABLE Lange (Nr BIGINT)");
  sql("INSERT INTO Lange VALUES (4294967397)");
  EXPECT_TRUE(refused("Lange", "4294967397"));
}

TEST_F(GapsCommandTest, PassesOverAByteOrderMark) {
  EXPECT_EQ(vexnumkr(gaps({"--numbers-from", file("\xEF\xBB\xBF"
                                                  "101\n")}))
                .output.find("keine Nummer"),
            std::string::npos);
}

TEST_F(GapsCommandTest, NamesRangesThatItCannotCompare) {
  range(0, "RE", 1, 9, 5);
  EXPECT_EQ(printed(gaps({"--numbers-from", file("101\n")}), 1),
            "Nummernkreis \"RE\", Standard wird nicht verglichen: Start 1, aktuell 9 und Ende 5 "
            "passen nicht zueinander.\n"
            "Nummernkreis \"RE\", Werk (vergeben 101–110):\n"
            "  Lücke: 102–110 (9 Nummern)\n"
            "1 Nummer gelesen, 1 Lücke mit 9 Nummern, 1 Nummernkreis nicht verglichen.\n");
  EXPECT_TRUE(printed(gaps({"--numbers-from", file("101\n"), "--circle", "0", "--json"}), 1)
                  .starts_with(R"({"kind":"skipped","key":"RE","circle":0,"text":"Nummernkreis )"));
}

TEST_F(GapsCommandTest, ComparesWithTheRangesOfBeforeTheYearsTurn) {
  const std::string before = file("") + ".json";
  printed({"export", "--application", "1", "--with-current", "-o", before});
  sql("UPDATE Nummernkreise SET StartWert = 200, AktuellerWert = 200, EndWert = 299");
  const std::string complete = file("101\n102\n103\n104\n105\n106\n107\n108\n109\n110\n");
  EXPECT_EQ(vexnumkr(gaps({"--numbers-from", complete})).exitCode, 1);
  EXPECT_EQ(printed(gaps({"--numbers-from", complete, "--ranges-from", before})),
            "10 Nummern gelesen: keine Lücke, keine doppelt, alle im Nummernkreis.\n");
  EXPECT_TRUE(
      printed(gaps({"--numbers-from", "SELECT Nr AS Nummer FROM Belege", "--ranges-from", before}),
              1)
          .starts_with("Nummernkreis \"RE\", Werk (vergeben 101–110):\n  Lücke: 103–104 "));
  printed({"export", "--application", "1", "-o", before});
  EXPECT_EQ(vexnumkr(gaps({"--numbers-from", complete, "--ranges-from", before})).errors,
            "vexnumkr: In " + before +
                " fehlen die aktuellen Werte; sie muss mit export --with-current geschrieben "
                "sein.\n");
}

TEST_F(GapsCommandTest, SaysWhoseNumbersASpecialRangeDraws) {
  range(1, "PF", 1000, 1000, 1999, {.sharedKey = "RE"});
  EXPECT_EQ(vexnumkr({"gaps", "--application", "1", "--key", "PF", "--numbers-from", "-"}).errors,
            "vexnumkr: \"PF\" hat keine eigenen Nummern, sondern zieht aus \"RE\"; bitte --key RE "
            "angeben.\n");
}

TEST_F(GapsCommandTest, ChangesNothingWhateverItIsGiven) {
  const ProgramRun run = vexnumkr(
      gaps({"--numbers-from", "SELECT Nr AS Nummer FROM Belege) Q; DELETE FROM Belege; --"}));
  EXPECT_EQ(run.exitCode, 3);
  EXPECT_EQ(rows("SELECT COUNT(*) AS N FROM Belege", {"N"}), std::vector<std::string>{"12"});
}

TEST_F(GapsCommandTest, SaysWhatIsNotThere) {
  EXPECT_EQ(vexnumkr(gaps({"--numbers-from", "/nirgends"})).errors,
            "vexnumkr: Die Datei /nirgends ist nicht zu lesen.\n");
  EXPECT_EQ(vexnumkr(gaps({"--numbers-from", "-", "--circle", "2"})).errors,
            "vexnumkr: Für \"RE\" gibt es hier keinen Nummernkreis.\n");
}

}  // namespace
}  // namespace vexnumkr::test
