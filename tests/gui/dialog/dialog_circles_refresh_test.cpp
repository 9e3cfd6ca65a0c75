// What the main dialog shows after its booking circles were administered: always what a fresh
// dialog shows over the same booking circles.
#include <cctype>

#include "support/dialog_session.h"

namespace vexnumkr::test {
namespace {

struct Change {
  const char* name;
  const char* statement;   // the user's work; empty where the user only looks
  const char* goneFilter;  // the filter entry that it takes away, or empty
};

const char* const all = "Alle Buchungskreise";
const char* const everybody = "Alle Benutzer";

class DialogCirclesRefreshTest
    : public DialogSession,
      public testing::WithParamInterface<std::tuple<Change, const char*, const char*>> {
 protected:
  DialogCirclesRefreshTest() {
    smallCompany("ORC");
    init(2);
  }

  static Change change() { return std::get<0>(GetParam()); }
  static std::string user() { return std::get<1>(GetParam()); }
  static std::string filter() { return std::get<2>(GetParam()); }
  static bool removesAll() { return std::string(change().name) == "AllRemoved"; }

  void administer() {
    host().plain.circleDialog.whenShown = [](Connection& connection) {
      std::int32_t affected = 0;
      if (*change().statement != '\0') connection.Execute(change().statement, affected);
    };
    press("cmdBuchungskreise");
  }

  /// What the filters offer and show, and every line of the tree with its values. Masks are left
  /// out: a range without one shows a blank or a 0, depending on where it comes from.
  Lines everythingShown() {
    Lines lines = entries("cboBuchungskreis");
    for (const char* combo : {"cboBuchungskreis", "cboUser"})
      lines.push_back(std::string(combo) + " " + shown(combo) +
                      (isVisible(combo) ? "" : " (hidden)"));
    const Lines items = tree();
    for (std::int32_t i = 0; i < grid().ListCount(); ++i)
      lines.push_back(items[static_cast<std::size_t>(i)] + " " + cell(i, grid_column::Start) + "|" +
                      cell(i, grid_column::Aktuell) + "|" + cell(i, grid_column::Ende));
    return lines;
  }

  /// The same of a fresh dialog over the booking circles as they are now, once they are stored.
  Lines freshlyShown(const std::string& circleFilter) {
    if (*change().statement != '\0') sql(change().statement);
    Lines lines;
    show([&] {
      select("cboBuchungskreis", circleFilter);
      lines = everythingShown();
      press("cmdCancel");
    });
    return lines;
  }
};

TEST_P(DialogCirclesRefreshTest, IsWhatAFreshDialogShows) {
  const std::string filterAfter = filter() == change().goneFilter ? all : filter();
  Lines after;
  show([&] {
    select("cboUser", user());
    select("cboBuchungskreis", filter());
    administer();
    EXPECT_EQ(shown("cboBuchungskreis"), filterAfter);
    after = everythingShown();
    press("cmdCancel");
  });
  if (removesAll() && user() != everybody) return;  // see below
  EXPECT_EQ(after, freshlyShown(filterAfter));
}

std::string named(const std::string& text) {
  std::string name;
  for (const char c : text)
    if (std::isalpha(static_cast<unsigned char>(c)) != 0) name += c;
  return name;
}

INSTANTIATE_TEST_SUITE_P(
    Matrix, DialogCirclesRefreshTest,
    testing::Combine(
        testing::Values(
            Change{"LeftAlone", "", ""},
            Change{"Added", "INSERT INTO Nummernkreis_Buchungskreise VALUES (3, 'West', 'ORC')",
                   ""},
            Change{"ShownRenamed",
                   "UPDATE Nummernkreis_Buchungskreise SET Beschreibung='Norden' WHERE "
                   "Buchungskreis=1",
                   "Nord"},
            Change{"OtherRenamed",
                   "UPDATE Nummernkreis_Buchungskreise SET Beschreibung='Süden' WHERE "
                   "Buchungskreis=2",
                   ""},
            Change{"ShownRemoved", "DELETE FROM Nummernkreis_Buchungskreise WHERE Buchungskreis=1",
                   "Nord"},
            Change{"OtherRemoved", "DELETE FROM Nummernkreis_Buchungskreise WHERE Buchungskreis=2",
                   ""},
            Change{"AllRemoved", "DELETE FROM Nummernkreis_Buchungskreise", "Nord"}),
        testing::Values(everybody, "Max"), testing::Values(all, "Aktive Buchungskreise", "Nord")),
    [](const auto& instance) {
      return std::string(std::get<0>(instance.param).name) + "_" +
             named(std::get<1>(instance.param)) + "_" + named(std::get<2>(instance.param));
    });

// Without booking circles there is no choice of users, so the view of the user that was open goes
// back to the common one. With the first new circle the choice is back, at "Alle Benutzer".
class DialogWithoutCirclesTest : public DialogSession,
                                 public testing::WithParamInterface<const char*> {};

TEST_P(DialogWithoutCirclesTest, AUsersViewGoesBackToTheCommonOne) {
  inCompany(2, [&] {
    select("cboUser", "Max");
    select("cboBuchungskreis", GetParam());
    const auto administer = [&](const char* statement) {
      host().plain.circleDialog.whenShown = [statement](Connection& connection) {
        std::int32_t affected = 0;
        connection.Execute(statement, affected);
      };
      press("cmdBuchungskreise");
    };
    administer("DELETE FROM Nummernkreis_Buchungskreise");
    EXPECT_FALSE(isVisible("cboUser"));
    EXPECT_EQ(entries("cboBuchungskreis"), (Lines{all, "Aktive Buchungskreise"}));
    EXPECT_EQ(tree(),
              (Lines{"Angebot (AN)", "Checked Standard", "Rechnung (RE)", "Checked Standard"}));
    EXPECT_EQ(shown("cboUser"), everybody);
    administer("INSERT INTO Nummernkreis_Buchungskreise VALUES (3, 'West', 'ORC')");
    EXPECT_TRUE(isVisible("cboUser"));
    EXPECT_EQ(shown("cboUser"), everybody);
    EXPECT_EQ(tree()[1], "Checked Standard");
  });
}

INSTANTIATE_TEST_SUITE_P(Filters, DialogWithoutCirclesTest,
                         testing::Values(all, "Aktive Buchungskreise", "Nord"),
                         [](const auto& instance) { return named(instance.param); });

}  // namespace
}  // namespace vexnumkr::test
