// "vexnumkr export", "diff" and "import" on every engine.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "cli/program_database.h"

namespace vexnumkr::test {
namespace {

class TransferCommandTest : public ProgramDatabase {
 protected:
  TransferCommandTest() {
    circle(1, "Werk \"Süd\"");
    range(0, "RE", 1, 1, 99, {.mask = "NN", .description = "Rechnung; alt"});
    range(1, "RE", 100, 150, 199);
    user("O'Neill");
    assign("ALL", 1, "RE");
    assign("O'Neill", 1, "RE");
    special("RX", "RE", false);
  }
  std::string path(const char* name) { return folder_.filePath(QLatin1String(name)).toStdString(); }
  static std::string contentOf(const std::string& file) {
    QFile opened(QString::fromStdString(file));
    EXPECT_TRUE(opened.open(QIODevice::ReadOnly)) << file;
    return opened.readAll().toStdString();
  }
  void write(const std::string& file, const std::string& content) {
    QFile opened(QString::fromStdString(file));
    EXPECT_TRUE(opened.open(QIODevice::WriteOnly));
    opened.write(QByteArray::fromStdString(content));
  }
  void empty() {
    for (const char* table : {"Nummernkreise", "Nummernkreis_Buchungskreise",
                              "Nummernkreis_Zuordnung", "Nummernkreis_Sonderkreise"})
      sql(std::string("DELETE FROM ") + table);
  }
  std::vector<std::string> call(const char* command, const std::vector<std::string>& further) {
    std::vector<std::string> arguments = {command, "--application", "1"};
    arguments.insert(arguments.end(), further.begin(), further.end());
    return arguments;
  }

 private:
  QTemporaryDir folder_;
};

TEST_F(TransferCommandTest, ARoundTripGivesTheSameBytes) {
  const std::string first = printed(call("export", {"--with-current"}));
  EXPECT_NE(first.find("\"current\": 150"), std::string::npos) << first;
  printed(call("export", {"--with-current", "-o", path("a.json")}));
  EXPECT_EQ(contentOf(path("a.json")), first);
  empty();
  EXPECT_TRUE(printed(call("import", {path("a.json"), "--with-current"}))
                  .ends_with("6 Änderungen gespeichert.\n"));
  EXPECT_EQ(printed(call("export", {"--with-current"})), first);
  EXPECT_EQ(printed(call("diff", {path("a.json"), "--with-current"})), "Kein Unterschied.\n");
  EXPECT_EQ(printed(call("import", {path("a.json"), "--with-current"})),
            "Kein Unterschied; es ist nichts zu tun.\n");
}

TEST_F(TransferCommandTest, ARoundTripThroughCsvGivesTheSameBytes) {
  sql("UPDATE Nummernkreise SET NBezeichnung = '=1+1' WHERE Buchungskreis = 1");
  circle(3, "\"");
  circle(4, "");
  circle(5, "@Süd");
  circle(6, "'=1");
  circle(7, "'Hof");
  range(4, "AN", -5, -5, 7, {.active = false});
  range(4, "AX", -5, -5, 7, {.active = false, .sharedKey = "AN"});
  sql("UPDATE Nummernkreise SET StartWert = NULL WHERE Buchungskreis = 4");
  const std::string first = printed(call("export", {"--with-current"}));
  printed(call("export", {"--with-current", "--format", "csv", "-o", path("csv")}));
  EXPECT_EQ(printed(call("diff", {path("csv"), "--with-current"})), "Kein Unterschied.\n");
  empty();
  EXPECT_TRUE(printed(call("import", {path("csv"), "--with-current"}))
                  .ends_with("13 Änderungen gespeichert.\n"));
  EXPECT_EQ(printed(call("export", {"--with-current"})), first);
  printed(call("export", {"--with-current", "--format", "csv", "-o", path("again")}));
  EXPECT_NE(contentOf(path("csv/Nummernkreise.csv")).find("RE;'=1+1;1;100"), std::string::npos);
  EXPECT_NE(contentOf(path("csv/Buchungskreise.csv")).find("5;'@Süd\r\n6;''=1\r\n7;'Hof\r\n"),
            std::string::npos);
  for (const char* const table :
       {"Anwendung", "Nummernkreise", "Buchungskreise", "Zuordnungen", "Sonderkreise"})
    EXPECT_EQ(contentOf(path("again") + "/" + table + ".csv"),
              contentOf(path("csv") + "/" + table + ".csv"));
}

TEST_F(TransferCommandTest, CsvFromASpreadsheetIsTaken) {
  printed(call("export", {"--format", "csv", "-o", path("csv")}));
  write(path("csv/Buchungskreise.csv"),
        "\xEF\xBB\xBF"
        "Beschreibung;Buchungskreis\n\"Werk\n\"\"Süd\"\"\";1\n\n");
  EXPECT_EQ(printed(call("import", {path("csv")})),
            "~ Buchungskreis (Buchungskreis 1): Beschreibung \"Werk \"Süd\"\" -> "
            "\"Werk?\"Süd\"\"\n1 Änderung gespeichert.\n");
  EXPECT_EQ(current(1, "RE"), 150);
}

TEST_F(TransferCommandTest, EveryFaultInCsvIsNamedAndNothingIsStored) {
  printed(call("export", {"--format", "csv", "-o", path("csv")}));
  const auto refusal = [&](const char* file, const std::string& content) {
    const std::string before = contentOf(path(file));
    write(path(file), content);
    const ProgramRun run = vexnumkr(call("import", {path("csv")}));
    write(path(file), before);
    EXPECT_EQ(run.exitCode, 2);
    return run.errors;
  };
  EXPECT_EQ(
      refusal("csv/Nummernkreise.csv",
              "NSchl;NBezeichnung;Buchungskreis;StartWert;EndWert;Aktiviert;SortierIndex;"
              "IstNSchlVon;Maske\r\nRE;Neu;1;100;19x;ja;1;;\r\nRE;Neu;2;9999999999;199;wahr;;;"
              "\r\nRE;1\r\n"),
      "vexnumkr: Das ist so nicht zu verwenden:\n"
      "Nummernkreise.csv, Zeile 2: EndWert ist keine Zahl mit 32 Bit: \"19x\".\n"
      "Nummernkreise.csv, Zeile 3: StartWert ist keine Zahl mit 32 Bit: \"9999999999\".\n"
      "Nummernkreise.csv, Zeile 3: Aktiviert muss ja oder nein sein, nicht \"wahr\".\n"
      "Nummernkreise.csv, Zeile 3: SortierIndex fehlt.\n"
      "Nummernkreise.csv, Zeile 4: hat 2 Zellen statt 9.\n");
  const std::string head = "vexnumkr: Das ist so nicht zu verwenden:\n";
  EXPECT_EQ(refusal("csv/Zuordnungen.csv", "Benutzer;NSchl;Bk\r\nALL;RE;1\r\nALL;RE;1\r\n"),
            head +
                "Zuordnungen.csv: Es fehlt die Spalte Buchungskreis.\n"
                "Zuordnungen.csv: Die Spalte \"Bk\" kennt niemand.\n");
  EXPECT_EQ(refusal("csv/Zuordnungen.csv", "Benutzer,NSchl,Buchungskreis\nALL,RE,1\n"),
            head +
                "Zuordnungen.csv: Die Zellen sind durch Kommas getrennt; erwartet werden "
                "Semikolons.\n");
  EXPECT_EQ(refusal("csv/Buchungskreise.csv", "Buchungskreis;Beschreibung\r\n1;\"Werk"),
            head +
                "Die Datei Buchungskreise.csv ist so nicht zu verwenden: Zeile 2 beginnt "
                "einen Text, der nicht endet.\n");
  EXPECT_EQ(refusal("csv/Buchungskreise.csv",
                    "Buchungskreis;Beschreibung\r\n1;S\xFC"
                    "d\r\n"),
            head +
                "Die Datei Buchungskreise.csv ist nicht in UTF-8; Tabellenprogramme nennen das "
                "\"CSV UTF-8\".\n");
  EXPECT_EQ(
      refusal("csv/Buchungskreise.csv", "Buchungskreis;Beschreibung\r\n1;a\r\n1;b\r\n1;c\r\n"),
      head +
          "Buchungskreise.csv, Zeile 3: Buchungskreis 1 steht schon in "
          "Buchungskreise.csv, Zeile 2.\n"
          "Buchungskreise.csv, Zeile 4: Buchungskreis 1 steht schon in "
          "Buchungskreise.csv, Zeile 2.\n");
  EXPECT_EQ(refusal("csv/Anwendung.csv", "Anwendung\r\n2\r\n"),
            "vexnumkr: Die Datei ist von der Anwendung 2, nicht von 1.\n");
  EXPECT_EQ(refusal("csv/Anwendung.csv", "Anwendung\r\n"),
            head + "Anwendung.csv: muss eine Zeile haben.\n");
  EXPECT_EQ(printed(call("diff", {path("csv")})), "Kein Unterschied.\n");
}

TEST_F(TransferCommandTest, WithoutCurrentValuesTheyStay) {
  printed(call("export", {"-o", path("a.json")}));
  EXPECT_EQ(contentOf(path("a.json")).find("current"), std::string::npos);
  sql("UPDATE Nummernkreise SET AktuellerWert = 160, EndWert = 180 WHERE Buchungskreis = 1");
  EXPECT_EQ(printed(call("diff", {path("a.json")}), 1),
            "~ Nummernkreis (RE, Buchungskreis 1): Endwert 180 -> 199\n1 Änderung.\n");
  EXPECT_EQ(printed(call("import", {path("a.json"), "--dry-run"})),
            "~ Nummernkreis (RE, Buchungskreis 1): Endwert 180 -> 199\n1 Änderung stünde an.\n");
  EXPECT_EQ(printed(call("import", {path("a.json")})),
            "~ Nummernkreis (RE, Buchungskreis 1): Endwert 180 -> 199\n1 Änderung gespeichert.\n");
  EXPECT_EQ(current(1, "RE"), 160);
}

TEST_F(TransferCommandTest, NumbersAreIssuedAgainOnlyWhereThatIsSaid) {
  printed(call("export", {"-o", path("a.json")}));
  sql("UPDATE Nummernkreise SET StartWert = 120, AktuellerWert = 260, EndWert = 300 WHERE "
      "Buchungskreis = 1");
  std::string document = contentOf(path("a.json"));
  const std::size_t at = document.find("\"end\": 199");
  ASSERT_NE(at, std::string::npos);
  write(path("a.json"), document.replace(at, 10, "\"end\": 250"));
  const std::string changes =
      "~ Nummernkreis (RE, Buchungskreis 1): Startwert 120 -> 100, Aktuell 260 -> 100, Endwert 300 "
      "-> 250\n";
  EXPECT_EQ(
      printed(call("import", {path("a.json")}), 1),
      changes +
          "FEHLER  Beleg (RE), Werk \"Süd\": Die Nummern 121–250 sind schon vergeben und "
          "würden noch einmal vergeben.\nEs wurde nichts geändert; mit --reissue würden diese "
          "Nummern noch einmal vergeben.\n");
  EXPECT_EQ(current(1, "RE"), 260);
  EXPECT_EQ(printed(call("import", {path("a.json"), "--reissue"})),
            changes + "1 Änderung gespeichert.\n");
  EXPECT_EQ(current(1, "RE"), 100);
}

TEST_F(TransferCommandTest, WhatCannotBeStoredIsNamedAndNothingIs) {
  std::string document = printed(call("export", {}));
  const std::size_t at = document.find("\"end\": 99");
  document.replace(at, 9, "\"end\": 0");
  write(path("a.json"), document);
  EXPECT_EQ(printed(call("import", {path("a.json"), "--json"}), 1),
            R"({
  "stored": false,
  "changes": [
    {
      "change": "changed",
      "table": "ranges",
      "what": "RE, Buchungskreis 0",
      "fields": [
        "Endwert 99 -> 0"
      ]
    }
  ],
  "broken": [
    {
      "kind": "endNotAboveStart",
      "circle": 0,
      "key": "RE",
      "text": "Rechnung; alt (RE), Standard: Der Endwert 0 muss größer sein als der Startwert 1."
    }
  ]
}
)");
}

TEST_F(TransferCommandTest, FilesThatAreNoneAreRefusedWithTheirFault) {
  const auto refusal = [&](const std::string& content) {
    write(path("a.json"), content);
    const ProgramRun run = vexnumkr(call("import", {path("a.json")}));
    EXPECT_EQ(run.exitCode, 2);
    return run.errors;
  };
  EXPECT_EQ(refusal("{"), "vexnumkr: Die Datei ist kein JSON (Stelle 2).\n");
  EXPECT_EQ(refusal("[]"), "vexnumkr: Die Datei ist nicht von \"vexnumkr export\".\n");
  EXPECT_EQ(refusal(R"({"format":"vexnumkr","version":2})"),
            "vexnumkr: Die Datei hat die Fassung 2; lesbar ist die Fassung 1.\n");
  const std::string head = "vexnumkr: Das ist so nicht zu verwenden:\n";
  EXPECT_EQ(
      refusal(R"({"format":"vexnumkr","version":1,"application":1,"circles":[{"number":"1"}, 5],)"
              R"("ranges":[{"circle":1,"key":"RE","description":"","start":1,"curent":5,"end":9,)"
              R"("active":1,"sortIndex":1,"sharedKey":"","mask":""}],"asignments":[],)"
              R"("specialRanges":{}})"),
      head +
          "circles[0] hat in \"number\" keine Zahl mit 32 Bit.\n"
          "circles[0] hat keinen Text \"description\".\n"
          "circles[1] ist kein Objekt.\n"
          "ranges[0] hat kein true oder false \"active\".\n"
          "ranges[0] hat \"curent\", was hier niemand kennt.\n"
          "Die Datei hat keine Liste \"assignments\".\n"
          "Die Datei hat keine Liste \"specialRanges\".\n"
          "Die Datei hat \"asignments\", was hier niemand kennt.\n");
  for (const char* const number : {"18446744073709551617", "18446744073709551615"})
    EXPECT_EQ(refusal(std::string(R"({"format":"vexnumkr","version":1,"circles":[],"ranges":[],)"
                                  R"("assignments":[],"specialRanges":[],"application":)") +
                      number + "}"),
              head + "Die Datei hat in \"application\" keine Zahl mit 32 Bit.\n");
  EXPECT_EQ(refusal(R"({"version":1e400})"),
            "vexnumkr: Die Datei ist so nicht zu verwenden: Eine Zahl ist zu groß.\n");
  constexpr std::size_t deep = 1'000'000;
  EXPECT_EQ(refusal("{\"version\":" + std::string(deep, '[') + std::string(deep, ']') + "}"),
            "vexnumkr: Die Datei ist nicht von \"vexnumkr export\".\n");
  EXPECT_EQ(refusal(R"({"format":"vexnumkr","version":1,"application":2,"circles":[],"ranges":[],)"
                    R"("assignments":[],"specialRanges":[]})"),
            "vexnumkr: Die Datei ist von der Anwendung 2, nicht von 1.\n");
}

TEST_F(TransferCommandTest, RowsThatMeanNothingAreRefusedWithTheirPlaces) {
  const std::string before = printed(call("export", {}));
  write(path("a.json"), R"({"format":"vexnumkr","version":1,"application":1,
    "circles":[{"number":0,"description":""},{"number":-3,"description":""}],
    "ranges":[{"circle":9,"key":"","description":"","start":1,"end":9,"active":true,"sortIndex":1,
               "sharedKey":"XX","mask":""},
              {"circle":1,"key":"LM","description":"","start":1,"end":9,"active":false,
               "sortIndex":1,"sharedKey":"","mask":""}],
    "assignments":[{"circle":1,"key":"ZZ","user":"ALL"},{"circle":9,"key":"RE","user":"Niemand"},
                   {"circle":1,"key":"RE","user":"Niemand "}],
    "specialRanges":[{"ownKey":"","key":"YY","description":"","active":false}]})");
  const ProgramRun run = vexnumkr(call("import", {path("a.json")}));
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_EQ(run.errors,
            "vexnumkr: Das ist so nicht zu verwenden:\n"
            "circles[0]: Ein Buchungskreis hat eine Nummer ab 1, nicht 0.\n"
            "circles[1]: Ein Buchungskreis hat eine Nummer ab 1, nicht -3.\n"
            "ranges[0]: Den Buchungskreis 9 gibt es nicht.\n"
            "ranges[0]: Der Nummernschlüssel ist leer.\n"
            "ranges[0]: Den Nummernkreis XX, aus dem gezogen werden soll, gibt es im Buchungskreis "
            "9 nicht.\n"
            "ranges[1]: Der Nummernschlüssel LM gehört der Anwendung selbst.\n"
            "assignments[0]: Den Nummernkreis ZZ gibt es im Buchungskreis 1 nicht.\n"
            "assignments[1]: Den Buchungskreis 9 gibt es nicht.\n"
            "assignments[1]: Den Benutzer \"Niemand\" gibt es nicht.\n"
            "assignments[2]: Den Benutzer \"Niemand\" gibt es nicht.\n"
            "specialRanges[0]: Der Nummernschlüssel ist leer.\n"
            "specialRanges[0]: Einen Nummernkreis \"YY\", aus dem er ziehen könnte, gibt es "
            "nicht.\n");
  EXPECT_EQ(printed(call("export", {})), before);
}

TEST_F(TransferCommandTest, WhatIsStoredAlreadyIsNotJudgedAgain) {
  assign("Niemand", 1, "ZZ");
  special("RZ", "QQ", true);
  printed(call("export", {"-o", path("a.json")}));
  EXPECT_EQ(printed(call("import", {path("a.json")})), "Kein Unterschied; es ist nichts zu tun.\n");
}

TEST_F(TransferCommandTest, TextsEndWhereTheirColumnsDo) {
  const std::string before = printed(call("export", {}));
  const std::string longKey(40, 'X');
  const std::string row = R"({"ownKey":")" + longKey +
                          R"(","key":"RE","description":"","active":false},{"ownKey":"RY  ",)"
                          R"("key":"RE","description":"","active":false})";
  std::string document = before;
  document.replace(document.find("\"specialRanges\": ["), 18, "\"specialRanges\": [" + row + ",");
  write(path("a.json"), document);
  const ProgramRun run = vexnumkr(call("import", {path("a.json")}));
  EXPECT_EQ(run.exitCode, 2) << run.output;
  EXPECT_TRUE(
      run.errors.starts_with("vexnumkr: Das ist so nicht zu verwenden:\n"
                             "specialRanges[0]: U_NSchl hat 40 Zeichen; in die Spalte "
                             "passen "))
      << run.errors;
  document.replace(document.find(longKey), longKey.size(), "RÄ");
  write(path("a.json"), document);
  EXPECT_EQ(printed(call("import", {path("a.json")})),
            "+ Sonderkreis (RY)\n+ Sonderkreis (RÄ)\n2 Änderungen gespeichert.\n")
      << "trailing blanks are none";
}

TEST_F(TransferCommandTest, AFileWithoutAnEndIsNotReadToIt) {
  EXPECT_EQ(vexnumkr(call("import", {"/dev/zero"})).errors,
            "vexnumkr: Die Datei /dev/zero ist zu groß; mehr als 256 MiB werden nicht gelesen.\n");
}

TEST_F(TransferCommandTest, SpreadsheetsGetTables) {
  printed(call("export", {"--format", "csv", "-o", path("csv")}));
  EXPECT_EQ(contentOf(path("csv/Nummernkreise.csv")),
            "\xEF\xBB\xBFNSchl;NBezeichnung;Buchungskreis;StartWert;EndWert;Aktiviert;SortierIndex;"
            "IstNSchlVon;Maske\r\n"
            "RE;\"Rechnung; alt\";0;1;99;ja;1;;NN\r\nRE;Beleg;1;100;199;ja;1;;\r\n");
  EXPECT_EQ(contentOf(path("csv/Buchungskreise.csv")),
            "\xEF\xBB\xBF"
            "Buchungskreis;Beschreibung\r\n1;\"Werk \"\"Süd\"\"\"\r\n");
  EXPECT_EQ(contentOf(path("csv/Anwendung.csv")),
            "\xEF\xBB\xBF"
            "Anwendung\r\n1\r\n");
  printed(call("export", {"--format", "xlsx", "-o", path("alles.xlsx")}));
  EXPECT_TRUE(contentOf(path("alles.xlsx")).starts_with("PK"));
  EXPECT_EQ(vexnumkr(call("export", {"--format", "xlsx"})).exitCode, 2);
}

}  // namespace
}  // namespace vexnumkr::test
