// What holds whatever a user does: random scenarios, each run by the driver, whose transcripts are
// checked against a plain model. VEXNUMKR_SEED replays one.
#include "scenario/random_scenario.h"

#include <gtest/gtest.h>
#include <stdio.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <vector>

#include "scenario/plain_rules.h"
#include "scenario/world/temporary_folder.h"

namespace vexnumkr::scenario {
namespace {

using Lines = std::vector<std::string>;

constexpr int scenarios = 5;
constexpr int steps = 25;

Cells cellsOf(std::string line) {
  Cells cells;
  for (std::size_t end; (end = line.find(" | ")) != std::string::npos; line.erase(0, end + 3))
    cells.push_back(line.substr(0, end));
  cells.push_back(line);
  return cells;
}

bool startsWith(const std::string& line, const std::string& start) {
  return line.rfind(start, 0) == 0;
}

std::string trimmedBlanks(const std::string& text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

// What a look at everything has shown.
struct View {
  std::string before;        // the command before it
  std::vector<Cells> items;  // of the grid, without their numbers and the current item
  std::vector<Cells> table;  // without row numbers
  std::string user;
  std::string filter;
  int item = -1;  // the current one
};

class Transcript {
 public:
  explicit Transcript(const std::string& text) {
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) lines_.push_back(line);
  }

  std::vector<View> views() const {
    std::vector<View> views;
    for (std::size_t i = 0; i < lines_.size(); ++i) {
      const std::string& line = lines_[i];
      if (line == "> grid") {
        views.emplace_back();
        views.back().before = lastCommand(i);
      } else if (startsWith(line, "grid: ")) {
        views.back().item = std::stoi(line.substr(line.find("listindex=") + 10));
      } else if (startsWith(line, "item ")) {
        views.back().items.push_back(cellsOf(line.substr(line.find(' ', 5) + 1)));
      } else if (startsWith(line, "row ")) {
        const Cells cells = cellsOf(line);
        views.back().table.emplace_back(cells.begin() + 1, cells.end());
      } else if (startsWith(line, "combo: cboUser ")) {
        views.back().user = line.substr(line.find("text=") + 5);
      } else if (startsWith(line, "combo: cboBuchungskreis ")) {
        views.back().filter = line.substr(line.find("text=") + 5);
      }
    }
    return views;
  }

  // The n-th listing of the database, from 0: its lines.
  Lines database(int n) const {
    Lines found;
    int seen = -1;
    for (const std::string& line : lines_) {
      if (line == "> database") ++seen;
      const bool belongs = startsWith(line, "table N") || startsWith(line, "row: ");
      if (seen == n && belongs) found.push_back(line);
    }
    return found;
  }

  // What follows the first `start`.
  std::string after(const std::string& start) const {
    for (const std::string& line : lines_)
      if (startsWith(line, start)) return line.substr(start.size());
    return {};
  }

  long count(const std::string& line) const {
    return std::count(lines_.begin(), lines_.end(), line);
  }
  const std::string& last() const { return lines_.back(); }

 private:
  std::string lastCommand(std::size_t before) const {
    while (before-- > 0)
      if (startsWith(lines_[before], "> ")) return lines_[before];
    return {};
  }

  Lines lines_;
};

bool isTrue(const Cells& row) { return row[8] == "True"; }

const Cells* rowOf(const View& view, const std::string& user, const std::string& circle,
                   const std::string& key) {
  for (const Cells& row : view.table)
    if (row[0] == user && row[1] == circle && row[3] == key) return &row;
  return nullptr;
}

std::string pictureFor(const View& view, const Cells& row) {
  if (view.user == "Alle Benutzer") return isTrue(row) ? "Checked" : "Unchecked";
  return isTrue(row) ? "ValueTrue" : "ValueFalse";
}

// Every range shown is one of the table, with its values and its state.
void expectShownRangesExist(const View& view) {
  for (const Cells& item : view.items) {
    if (item[10] != "Pos") continue;
    const Cells* row = rowOf(view, view.user, item[6], item[7]);
    ASSERT_NE(row, nullptr) << item[1] << ' ' << item[7];
    EXPECT_EQ(Cells(item.begin() + 2, item.begin() + 5), Cells(row->begin() + 5, row->begin() + 8));
    EXPECT_EQ(trimmedBlanks(item[5]), trimmedBlanks((*row)[11]));
    EXPECT_NE(item[0].find("picture=" + pictureFor(view, *row) + " "), std::string::npos)
        << item[0];
  }
}

bool isShown(const View& view, const Cells& row) {
  if (view.filter == "Alle Buchungskreise") return true;
  if (view.filter == "Aktive Buchungskreise") return isTrue(row);
  return row[2] == view.filter;
}

bool hasRangeOfFilter(const View& view, const std::string& key) {
  return std::any_of(view.table.begin(), view.table.end(), [&](const Cells& row) {
    return row[0] == view.user && row[2] == view.filter && row[3] == key;
  });
}

// The captions of a tree built from the table, in order.
Lines expectedCaptions(const View& view) {
  const bool isOneCircle = view.filter.find("Buchungskreise") == std::string::npos;
  Lines captions;
  for (const Cells& row : view.table) {
    if (row[0] != view.user) continue;
    if (row[1] == "0") {
      captions.push_back(row[4] + " (" + row[3] + ")");
      if (isOneCircle && view.user != "Alle Benutzer" && !hasRangeOfFilter(view, row[3]))
        captions.push_back("keine Zuordnung vorhanden");
    }
    if (isShown(view, row)) captions.push_back(row[2]);
  }
  return captions;
}

void expectTreeBuiltFromTable(const View& view) {
  Lines captions;
  for (const Cells& item : view.items) captions.push_back(item[1]);
  EXPECT_EQ(captions, expectedCaptions(view));
}

std::string stored(bool flag) { return flag ? "-1" : "0"; }

Lines rowsOf(const Lines& database, const std::string& table) {
  auto at = std::find(database.begin(), database.end(), "table " + table);
  Lines rows;
  while (at != database.end() && ++at != database.end() && startsWith(*at, "row: "))
    rows.push_back(*at);
  return rows;
}

// A special range that was switched off and on again has come back with zeros that nobody has
// entered, so the stored values are kept.
void takeStoredValues(Cells& row, const Lines& before) {
  const bool isEmpty = row[5] == "0" && row[6] == "0" && row[7] == "0";
  if (row[10].empty() || !isEmpty) return;
  for (const std::string& line : before) {
    const Cells stored = cellsOf(line.substr(line.find(' ') + 1));
    if (stored[0] != row[1] || stored[1] != row[3]) continue;
    std::copy(stored.begin() + 3, stored.begin() + 6, row.begin() + 5);
    row[11] = trimmedBlanks(stored[9]);
  }
}

// What saving makes of the table: every common row as a range, every active row as an assignment.
Lines expectedRanges(const View& view, const Lines& before) {
  Lines rows;
  for (Cells row : view.table) {
    if (row[0] != "Alle Benutzer") continue;
    takeStoredValues(row, before);
    std::string line = "row: " + row[1] + " | " + row[3] + " | " + row[4] + " | " + row[5] + " | " +
                       row[6] + " | " + row[7] + " | " + stored(isTrue(row)) + " | " + row[9] +
                       " | " + row[10] + " | " + row[11];
    rows.push_back(line);
  }
  return rows;
}

Lines expectedAssignments(const View& view) {
  Lines rows;
  for (const Cells& row : view.table) {
    const std::string user = row[0] == "Alle Benutzer" ? "ALL" : row[0];
    if (isTrue(row)) rows.push_back("row: " + row[1] + " | " + row[3] + " | " + user + " | ");
  }
  return rows;
}

Lines sorted(Lines lines) {
  std::sort(lines.begin(), lines.end());
  return lines;
}

void expectSaved(const Transcript& transcript, const View& view) {
  const Lines database = transcript.database(1);
  EXPECT_EQ(sorted(rowsOf(database, "Nummernkreise")),
            sorted(expectedRanges(view, rowsOf(transcript.database(0), "Nummernkreise"))));
  Lines assignments = rowsOf(database, "Nummernkreis_Zuordnung");
  for (std::string& row : assignments) row.erase(row.rfind("OR"));  // whatever the origin
  EXPECT_EQ(sorted(assignments), sorted(expectedAssignments(view)));
}

std::vector<Cells> cellsOfTable(const Transcript& transcript, const std::string& table) {
  std::vector<Cells> rows;
  for (const std::string& line : rowsOf(transcript.database(0), table))
    rows.push_back(cellsOf(line.substr(line.find(' ') + 1)));
  return rows;
}

PlainDatabase databaseBefore(const Transcript& transcript) {
  return {cellsOfTable(transcript, "Nummernkreise"),
          cellsOfTable(transcript, "Nummernkreis_Buchungskreise"),
          cellsOfTable(transcript, "Nummernkreis_Zuordnung"),
          cellsOfTable(transcript, "Nummernkreis_Sonderkreise"),
          cellsOf(transcript.after("users: ")),
          transcript.after("> application ") == "1" ? "ORB" : "ORC"};
}

// A row a line, so that a difference is shown as one.
std::string printed(const std::vector<Cells>& rows) {
  std::string text;
  for (const Cells& row : rows) {
    for (const std::string& cell : row) text += cell + " | ";
    text += '\n';
  }
  return text;
}

// After loading and after every tick, which are the steps that follow from what was seen before.
void expectTableFollowsRules(const Transcript& transcript) {
  const PlainDatabase database = databaseBefore(transcript);
  const std::vector<View> views = transcript.views();
  EXPECT_EQ(printed(views[0].table), printed(PlainTable::loaded(database).rows()));
  for (std::size_t i = 1; i < views.size(); ++i) {
    if (views[i].before != "> key Space") continue;
    const View& before = views[i - 1];
    PlainTable table(before.table, database.users);
    const auto item = static_cast<std::size_t>(views[i].item);
    ASSERT_LT(item, before.items.size());
    table.tick({before.items, item, before.user, before.filter});
    EXPECT_EQ(printed(views[i].table), printed(table.rows())) << "after look " << i;
  }
}

class RandomScenarioTest : public ::testing::Test {
 protected:
  std::string run(const std::string& scenario) {
    const std::string file = folder_.path() + "/random.scenario";
    std::ofstream(file, std::ios::binary) << scenario;
    FILE* output = popen(("'" SCENARIO_PROGRAM "' '" + file + "'").c_str(), "r");
    std::string transcript;
    char buffer[4096];
    for (std::size_t n; (n = fread(buffer, 1, sizeof buffer, output)) > 0;)
      transcript.append(buffer, n);
    pclose(output);
    return transcript;
  }

  static std::uint32_t seed() {
    const char* given = std::getenv("VEXNUMKR_SEED");
    return given == nullptr ? std::random_device()()
                            : static_cast<std::uint32_t>(std::strtoul(given, nullptr, 10));
  }

  TemporaryFolder folder_;
};

void expectTransactionClosed(const Transcript& transcript) {
  EXPECT_EQ(transcript.count("conn: BEGIN"),
            transcript.count("conn: COMMIT") + transcript.count("conn: ROLLBACK"));
}

TEST_F(RandomScenarioTest, ShowsWhatTheTableHoldsAndCancelsOrSavesIt) {
  const std::uint32_t first = seed();
  for (std::uint32_t current = first; current != first + scenarios; ++current) {
    SCOPED_TRACE("VEXNUMKR_SEED=" + std::to_string(current));
    RandomScenario random(current);
    const std::string work = random.beginning() + random.work(steps);

    const std::string text = run(work + random.cancel());
    EXPECT_EQ(run(work + random.cancel()), text) << "the same scenario ran differently";
    const Transcript cancelled(text);
    ASSERT_FALSE(startsWith(cancelled.last(), "failed: ")) << cancelled.last();
    ASSERT_EQ(cancelled.views().size(), static_cast<std::size_t>(steps) + 1);
    for (const View& view : cancelled.views()) {
      expectShownRangesExist(view);
      if (startsWith(view.before, "> select ") || view.before == "> show")
        expectTreeBuiltFromTable(view);
    }
    expectTableFollowsRules(cancelled);
    EXPECT_EQ(cancelled.database(1), cancelled.database(0));
    expectTransactionClosed(cancelled);

    const Transcript closed(run(work + random.ok()));
    if (startsWith(closed.last(), "failed: ")) {
      EXPECT_EQ(closed.database(1), closed.database(0));
    } else {
      expectTransactionClosed(closed);
      if (closed.count("conn: COMMIT") > 0) expectSaved(closed, closed.views().back());
    }
    if (HasFailure()) break;
  }
}

}  // namespace
}  // namespace vexnumkr::scenario
