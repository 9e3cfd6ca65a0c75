// Moving settings: what differs, what is stored, and what is refused.
#include <gtest/gtest.h>

#include <vexnumkr/error.h>
#include <vexnumkr/number_transfer.h>

#include "numbers/numbers_database.h"
#include "support/error_of.h"
#include "support/faults/hooked_connection.h"

namespace vexnumkr::test {
namespace {

using Lines = std::vector<std::string>;
using numbers::Company;
using numbers::TransferOptions;

Lines shown(const std::vector<numbers::Change>& changes) {
  Lines lines;
  for (const numbers::Change& change : changes) {
    std::string line = std::string(1, "+~-"[static_cast<std::size_t>(change.kind)]) + change.what;
    for (const std::string& field : change.fields) line += " [" + field + "]";
    lines.push_back(line);
  }
  return lines;
}

class TransferTest : public NumbersDatabase {
 protected:
  TransferTest() {
    circle(1, "Werk");
    circle(2, "Ost");
    circle(2, "East", "ORC");
    circle(7, "Fremd", "ORC");
    range(0, "RE", 1, 1, 99);
    range(1, "RE", 100, 150, 199, {.mask = "1NN"});
    range(2, "RE", 200, 220, 299);
    range(7, "RE", 700, 700, 799);
    range(1, "LM", 1, 1, 9);
    user("Anna");
    user("O'Neill");
    assign("ALL", 1, "RE");
    assign("O'Neill", 2, "RE");
    assign("Anna", 7, "RE", "ORC");
    special("RX", "RE", false);
  }

  Company company() { return numbers::readCompany(connection(), 1); }
  Lines store(const Company& wanted, const TransferOptions& options = {}) {
    return shown(numbers::storeCompany(connection(), wanted, options).changes);
  }
  /// Stores while a host draws a number from RE, circle 1, when the ranges have been read.
  void storeWhileSomebodyDraws(const Company& wanted, const TransferOptions& options = {}) {
    Hooks hooks;
    hooks.beforeStatement = [&](const std::string& text) {
      const bool isFirstChange = text.find("Nummernkreise") != std::string::npos &&
                                 !text.starts_with("SELECT") && !text.ends_with("WHERE 1 = 0");
      if (!isFirstChange) return;
      hooks.beforeStatement = nullptr;
      sql("UPDATE Nummernkreise SET AktuellerWert = AktuellerWert + 1 WHERE Buchungskreis = 1 AND "
          "NSchl = 'RE'");
    };
    HookedConnection hooked(connect(), hooks);
    numbers::storeCompany(hooked, wanted, options);
  }
  /// Everything that is stored, and whose it is.
  Lines everything() {
    Lines all = rows("SELECT * FROM Nummernkreise ORDER BY Buchungskreis, NSchl",
                     {"Buchungskreis", "NSchl", "NBezeichnung", "StartWert", "AktuellerWert",
                      "EndWert", "Aktiviert", "SortierIndex", "IstNSchlVon", "Maske"});
    const auto add = [&](const Lines& lines) { all.insert(all.end(), lines.begin(), lines.end()); };
    add(rows("SELECT * FROM Nummernkreis_Buchungskreise ORDER BY Herkunft, Buchungskreis",
             {"Herkunft", "Buchungskreis", "Beschreibung"}));
    add(rows(
        "SELECT * FROM Nummernkreis_Zuordnung ORDER BY Herkunft, Buchungskreis, NSchl, Benutzer",
        {"Herkunft", "Buchungskreis", "NSchl", "Benutzer"}));
    add(rows("SELECT * FROM Nummernkreis_Sonderkreise ORDER BY Herkunft, U_NSchl",
             {"Herkunft", "U_NSchl", "NSchl", "NBezeichnung", "Aktiviert"}));
    return all;
  }
  void empty() {
    for (const char* table : {"Nummernkreise", "Nummernkreis_Buchungskreise",
                              "Nummernkreis_Zuordnung", "Nummernkreis_Sonderkreise"})
      sql(std::string("DELETE FROM ") + table);
  }
};

TEST_F(TransferTest, WhatIsStoredAlreadyIsNoChange) {
  const Lines before = everything();
  EXPECT_EQ(store(company(), {.withCurrent = true, .removeOthers = true}), Lines{});
  EXPECT_EQ(everything(), before);
}

TEST_F(TransferTest, AnEmptyDatabaseGetsAllOfIt) {
  const Company wanted = company();
  empty();
  EXPECT_EQ(store(wanted, {.withCurrent = true}).size(), 2U + 3U + 2U + 1U);
  EXPECT_TRUE(
      numbers::differences(company(), wanted, {.withCurrent = true, .removeOthers = true}).empty());
  EXPECT_EQ(current(1, "RE"), 150);
  EXPECT_EQ(store(wanted, {.withCurrent = true}), Lines{});
}

TEST_F(TransferTest, EveryFieldThatDiffersIsToldAndStored) {
  Company wanted = company();
  wanted.circles[0].description = "Werk \\ 'Nord'";
  wanted.ranges[1].end = 189;
  wanted.ranges[1].mask = "";
  wanted.ranges[1].description = "L'Été";
  wanted.ranges[2].active = false;
  wanted.assignments.push_back({1, "RE", "Anna"});
  wanted.specialRanges[0].active = true;
  const Lines changes = {
      "~Buchungskreis 1 [Beschreibung \"Werk\" -> \"Werk \\ 'Nord'\"]",
      "~RE, Buchungskreis 1 [Bezeichnung \"Beleg\" -> \"L'Été\"] [Endwert 199 -> "
      "189] [Maske \"1NN\" -> \"\"]",
      "~RE, Buchungskreis 2 [Aktiviert ja -> nein]", "+Anna: RE, Buchungskreis 1",
      "~RX [Aktiviert nein -> ja]"};
  EXPECT_EQ(shown(numbers::planImport(connection(), wanted, {}).changes), changes);
  EXPECT_EQ(store(wanted), changes);
  EXPECT_EQ(store(wanted), Lines{});
  EXPECT_EQ(company().circles[0].description, "Werk \\ 'Nord'");
}

TEST_F(TransferTest, CurrentValuesStayUnlessTheyAreWanted) {
  Company wanted = company();
  wanted.ranges[1].current = 170;
  EXPECT_EQ(store(wanted), Lines{});
  EXPECT_EQ(store(wanted, {.withCurrent = true}),
            Lines{"~RE, Buchungskreis 1 [Aktuell 150 -> 170]"});
  wanted.ranges[1].current.reset();  // as a file without them has it
  EXPECT_EQ(store(wanted, {.withCurrent = true}), Lines{});
}

TEST_F(TransferTest, NumbersThatAreIssuedAreNotIssuedAgain) {
  Company wanted = company();
  wanted.ranges[1].start = 105;  // RE, circle 1, has issued 101 to 150
  wanted.ranges[1].end = 145;
  wanted.ranges[1].current.reset();
  wanted.ranges[2].start = 210;
  const Lines before = everything();
  for (const bool withCurrent : {false, true}) {
    const TransferOptions options{.withCurrent = withCurrent};
    const auto plan = numbers::storeCompany(connection(), wanted, options);
    ASSERT_EQ(plan.broken.size(), 1U);
    EXPECT_EQ(plan.broken[0].kind, numbers::FindingKind::numbersReissued);
    EXPECT_EQ(plan.broken[0].text,
              "Beleg (RE), Werk: Die Nummern 106–145 sind schon vergeben und würden noch einmal "
              "vergeben.");
    EXPECT_EQ(everything(), before);
  }
  EXPECT_TRUE(numbers::storeCompany(connection(), wanted, {.withCurrent = false, .reissue = true})
                  .isPossible());
  EXPECT_EQ(current(1, "RE"), 105);
  EXPECT_EQ(current(2, "RE"), 220);
}

TEST_F(TransferTest, ACurrentValueThatIsAskedForIsSetBack) {
  Company wanted = company();
  wanted.ranges[1].current = 120;
  EXPECT_EQ(store(wanted, {.withCurrent = true}),
            Lines{"~RE, Buchungskreis 1 [Aktuell 150 -> 120]"});
  EXPECT_EQ(current(1, "RE"), 120);
}

TEST_F(TransferTest, ANewRangeBeginsWithItsStart) {
  Company wanted = company();
  numbers::Range added = wanted.ranges[1];
  added.key = "AN";
  added.current.reset();
  wanted.ranges.push_back(added);
  store(wanted);
  EXPECT_EQ(current(1, "AN"), 100);
}

TEST_F(TransferTest, OthersStayUnlessTheyAreToGo) {
  Company wanted = company();
  wanted.ranges.clear();
  wanted.assignments.pop_back();
  wanted.specialRanges.clear();
  wanted.circles.pop_back();
  EXPECT_EQ(store(wanted), Lines{});
  EXPECT_EQ(
      store(wanted, {.withCurrent = false, .removeOthers = true}),
      (Lines{"-Buchungskreis 2", "-RE, Buchungskreis 1", "-O'Neill: RE, Buchungskreis 2", "-RX"}));
  // The standard range and that of a circle which the other application has, too, are not its own.
  EXPECT_EQ(rows("SELECT Buchungskreis, NSchl FROM Nummernkreise ORDER BY Buchungskreis",
                 {"Buchungskreis", "NSchl"}),
            (Lines{"0|RE", "1|LM", "2|RE", "7|RE"}));
  EXPECT_EQ(rows("SELECT Benutzer FROM Nummernkreis_Zuordnung ORDER BY Benutzer", {"Benutzer"}),
            (Lines{"ALL", "Anna"}));
}

TEST_F(TransferTest, WhatTheDialogWouldRefuseIsRefusedWithAllOfIt) {
  Company wanted = company();
  wanted.ranges[0].end = 1;
  wanted.ranges[1].end = 200;
  wanted.circles[0].description = "Neu";
  const Lines before = everything();
  const auto plan = numbers::storeCompany(connection(), wanted, {});
  ASSERT_EQ(plan.broken.size(), 2U);
  EXPECT_EQ(plan.broken[0].kind, numbers::FindingKind::endNotAboveStart);
  EXPECT_EQ(plan.broken[1].kind, numbers::FindingKind::overlapsOtherCircle);
  EXPECT_EQ(everything(), before);
}

TEST_F(TransferTest, RowsThatMeanNothingAreRefusedUnlessTheyAreStored) {
  assign("Niemand", 1, "ZZ");
  Company wanted = company();
  wanted.ranges[1].mask = "1N";
  EXPECT_TRUE(numbers::planImport(connection(), wanted, {}).faults.empty());
  wanted.assignments.push_back({3, "RE", "Max"});
  wanted.circles.push_back({-1, "Neu"});
  const Lines before = everything();
  const auto plan = numbers::storeCompany(connection(), wanted, {});
  Lines faults;
  for (const auto& fault : plan.faults)
    faults.push_back(std::to_string(static_cast<int>(fault.table)) + "/" +
                     std::to_string(fault.row) + " " + fault.text);
  EXPECT_EQ(faults, (Lines{"0/2 Ein Buchungskreis hat eine Nummer ab 1, nicht -1.",
                           "2/3 Den Buchungskreis 3 gibt es nicht.",
                           "2/3 Den Benutzer \"Max\" gibt es nicht."}));
  EXPECT_FALSE(plan.isPossible());
  EXPECT_EQ(everything(), before);
}

TEST_F(TransferTest, ANumberDrawnMeanwhileStaysDrawn) {
  if (isSqlite()) GTEST_SKIP() << "there is one writer at a time";
  Company wanted = company();
  wanted.ranges[1].end = 189;
  EXPECT_EQ(errorOf([&] { storeWhileSomebodyDraws(wanted); }), 3023);
  EXPECT_EQ(current(1, "RE"), 151);
  EXPECT_EQ(store(wanted), Lines{"~RE, Buchungskreis 1 [Endwert 199 -> 189]"});
  EXPECT_EQ(current(1, "RE"), 151);
}

TEST_F(TransferTest, ARangeFromWhichANumberIsDrawnMeanwhileIsNotRemoved) {
  if (isSqlite()) GTEST_SKIP() << "there is one writer at a time";
  Company wanted = company();
  wanted.ranges.erase(wanted.ranges.begin() + 1);
  const auto remove = [&] { storeWhileSomebodyDraws(wanted, {.removeOthers = true}); };
  EXPECT_EQ(errorOf(remove), 3023);
  EXPECT_EQ(current(1, "RE"), 151);
}

TEST_F(TransferTest, AFailureInTheMiddleChangesNothing) {
  Company wanted = company();
  wanted.circles[0].description = "Neu";
  wanted.assignments.push_back({1, "RE", "Anna"});
  numbers::SpecialRange tooLong{"RY", "RE", "Sonder", true};
  tooLong.ownKey = std::string(300, 'x');
  wanted.specialRanges.push_back(tooLong);
  sql("DROP TABLE Nummernkreis_Sonderkreise");
  sql("CREATE TABLE Nummernkreis_Sonderkreise (U_NSchl VARCHAR(500) CHECK (length(U_NSchl) < 20), "
      "NSchl VARCHAR(10), NBezeichnung VARCHAR(60), Aktiviert SMALLINT, Herkunft VARCHAR(3))");
  const Lines before = everything();
  EXPECT_THROW(numbers::storeCompany(connection(), wanted, {}), Error);
  EXPECT_EQ(everything(), before);
}

}  // namespace
}  // namespace vexnumkr::test
