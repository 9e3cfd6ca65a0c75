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
            R"("strays":1,"unreadable":0})"
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
