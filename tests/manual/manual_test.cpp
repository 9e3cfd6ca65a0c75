// What docs/handbuch.md says is what the system shows.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string_view>

#include "app/components/booking_circles.h"
#include "data/loading.h"
#include "dialogs/main/cell_editing.h"
#include "hosting/boxes.h"
#include "manual/source_texts.h"
#include "rules/activity.h"
#include "rules/mask_numbering.h"
#include "rules/saving/stored_changes.h"
#include "rules/validation.h"
#include "support/core_session.h"

namespace vexnumkr {
namespace {

namespace fs = std::filesystem;
using test::Box;
using test::inOneLine;
using test::linesOf;
using Lines = std::vector<std::string>;

const fs::path project = PROJECT_DIR;
const fs::path manualFile = project / "docs" / "handbuch.md";

std::string manual() { return test::contentOf(manualFile); }

/// The messages that the manual shows: its quoted lines.
Lines quotedLines() {
  Lines quoted;
  for (const std::string& line : linesOf(manual()))
    if (line.rfind("> ", 0) == 0) quoted.push_back(line.substr(2));
  return quoted;
}

/// The cells of the rows of the table below the line that begins with `head`.
std::vector<Lines> tableBelow(const std::string& head) {
  std::vector<Lines> rows;
  bool inside = false;
  for (const std::string& line : linesOf(manual())) {
    if (inside && line[0] != '|') break;
    if (inside && line.rfind("|---", 0) != 0) {
      Lines cells;
      for (std::size_t at = 1, end = 0; (end = line.find('|', at)) != std::string::npos;
           at = end + 1)
        cells.push_back(std::string(trimBlanks(line.substr(at, end - at))));
      rows.push_back(cells);
    }
    if (line.rfind(head, 0) == 0) inside = true;
  }
  return rows;
}

void addLines(std::set<std::string>& lines, const std::string& text) {
  for (const std::string& line : linesOf(text)) lines.insert(line);
}

bool endsLikeASentence(const std::string& line) {
  static constexpr std::string_view dots = "…";
  const bool goesOn =
      line.size() > dots.size() && line.compare(line.size() - dots.size(), dots.size(), dots) == 0;
  return goesOn || std::string(".!?:").find(line.back()) != std::string::npos;
}

// In a statement a question mark stands for a value.
bool hasPlaceholders(const std::string& line) {
  return line.find(" ?") != std::string::npos || line.find("(?") != std::string::npos;
}

// What the user reads begins with a capital letter and ends like a sentence, or with the dots of
// what is going on.
bool isSentence(const std::string& line) {
  const auto first = static_cast<unsigned char>(line[0]);
  const bool capital = (first >= 'A' && first <= 'Z') || line.rfind("Ä", 0) == 0 ||
                       line.rfind("Ö", 0) == 0 || line.rfind("Ü", 0) == 0;
  return capital && endsLikeASentence(line) && !hasPlaceholders(line) &&
         line.find(' ') != std::string::npos;
}

// A word or two of German, as failures are described.
bool isDescription(const std::string& line) {
  return line[0] >= 'A' && line[0] <= 'Z' && line.rfind("VEX", 0) != 0;
}

std::set<std::string> shownTexts() {
  const fs::path source = project / "src";
  std::set<std::string> texts;
  for (const char* folder : {"rules", "dialogs", "data", "hosting", "app/components"}) {
    for (const std::string& literal : test::literalsBelow(source / folder))
      for (const std::string& line : linesOf(literal))
        if (isSentence(line)) texts.insert(line);
  }
  for (const char* file : {"platform/error.cpp", "platform/reporter.cpp"}) {
    for (const std::string& literal : test::literalsBelow(source / file))
      if (isDescription(literal)) texts.insert(literal);
  }
  return texts;
}

/// Raises the messages for real, over ranges like those of the manual.
class ManualMessages : public test::CoreSession {
 protected:
  void range(const std::string& key, const std::string& name, std::int32_t circle,
             const std::string& caption, std::int32_t from, std::int32_t current, std::int32_t to,
             const std::string& sharedWith = "") {
    row({alleBenutzer, circle, caption, key, name, from, current, to, true, 1, sharedWith, ""});
  }
  void validate() {
    const Validity validity = basAllgemein::CheckValidity(table(), session().reporter());
    ASSERT_TRUE(validity.defect);
    session().boxes().MsgBoxEx(defectMessage(table(), *validity.defect), msg_box::okOnly, "Info");
    table().create();
  }

  void raiseValidationMessages() {
    range("AB", "Auftrag", 1, "Zentrale Ulm", 5, 5, 5);
    validate();
    range("AB", "Auftrag", 1, "Zentrale Ulm", 5, 4, 9);
    validate();
    range("AB", "Auftrag", 1, "Zentrale Ulm", 1, 1, 100);
    range("AB", "Auftrag", 2, "Niederlassung Dresden", 50, 50, 200);
    validate();
    range("RE", "Rechnung", 0, "Standard", 1, 1, 100);
    range("PF", "Proforma-Rechnung", 0, "Standard", 50, 50, 200, "RE");
    sortedLast();
    validate();
  }
  /// Special ranges stand behind all others.
  void sortedLast() {
    change(1, [](RangeRow& row) { row.SortierIndex = 99999999; });
  }

  void save(std::int32_t application) {
    start(application);
    range("RE", "Rechnung", 1, "Zentrale Ulm", 1, 1, 9);
    session().beginTransaction();
    session().blnChanged(true);
    EXPECT_FALSE(Save(false));
    session().rollBackTransaction();
  }
  void raiseSavingMessages() {
    save(3);
    sql("CREATE TRIGGER t BEFORE INSERT ON Nummernkreise BEGIN SELECT RAISE(IGNORE); END");
    save(2);
    sql("DROP TRIGGER t");
    script().afterwards = [this](const std::string& entry) {
      if (!entry.starts_with("work: SELECT NSchl")) return;
      sql("INSERT INTO Nummernkreise VALUES (1, 'RE', 'Rechnung', 1, 2, 9, -1, 1, '', '')");
      script().afterwards = nullptr;
    };
    save(2);
    script().failStatement(1);
    RefreshCombo();
    session().blnChanged(true);
    EXPECT_FALSE(Save(false));
  }
  // Of what the component itself says; the deliberate failure is the test's.
  void addOwnTexts(std::set<std::string>& lines) {
    for (const Box& box : boxes()) {
      const bool isFailure = box.title.rfind("Fehler", 0) == 0;
      if (isFailure && box.prompt.find(test::deliberateErrorText) == std::string::npos)
        lines.insert(box.prompt.substr(box.prompt.find(": ") + 2));
      if (!isFailure) addLines(lines, box.prompt);
    }
  }

  std::set<std::string> raised() {
    std::set<std::string> lines;
    raiseSavingMessages();
    addOwnTexts(lines);
    start(2);
    raiseValidationMessages();
    for (const char* entry : {"viel", "3.000.000.000"})
      basAllgemein::CheckValue(session().boxes(), session().reporter(), entry);
    reportingFailures(session().reporter(), {"basAllgemein", "Save"},
                      [] { throw Error(5, "QSQLITE", "database is locked"); });
    for (const Box& box : boxes()) {
      addLines(lines, box.prompt);
      if (box.title.rfind("Fehler", 0) == 0) lines.insert(box.title);
    }
    addLines(
        lines,
        conflictQuestion(
            {{{1, "RE"}, "Rechnung", "Zentrale Ulm", {1, 260117, 9, ""}, {1, 260118, 9, ""}}}));
    const std::vector<app::BookingCircle> present = {{3, "Onlinehandel"}, {4, "Werkstatt"}};
    for (const char* number : {"0", "3", "99999999999"})
      lines.insert(app::refusedNumber(number, present));
    for (const char* description : {"", "Werkstatt", "Standard"})
      lines.insert(app::refusedDescription(description, 0, present));
    lines.insert(app::refusedDescription(std::string(75, 'x'), 0, present));
    addLines(lines, maskToolTip("20240315"));
    return lines;
  }
};

TEST_F(ManualMessages, AreThoseOfTheSystem) {
  std::set<std::string> known = raised();
  for (const char* folder : {"rules", "hosting", "dialogs", "app/components"})
    for (const std::string& literal : test::literalsBelow(project / "src" / folder))
      addLines(known, literal);
  const Lines quoted = quotedLines();
  EXPECT_GT(quoted.size(), 20U);
  for (const std::string& line : quoted) EXPECT_EQ(known.count(line), 1U) << line;
}

TEST_F(ManualMessages, AreAllThere) {
  const std::string text = inOneLine(manual());
  for (const std::string& line : raised()) EXPECT_NE(text.find(line), std::string::npos) << line;
}

TEST(Manual, HasEverySentenceThatTheSystemShows) {
  const std::string text = inOneLine(manual());
  const std::set<std::string> texts = shownTexts();
  EXPECT_GT(texts.size(), 30U);
  for (const std::string& line : texts) EXPECT_NE(text.find(line), std::string::npos) << line;
}

TEST(Manual, ComputesItsMasksAsTheSystemDoes) {
  const auto rows = tableBelow("| Maske | Start und Aktuell | Ende |");
  ASSERT_GT(rows.size(), 8U);
  for (const Lines& row : rows) {
    const std::string mask = row.at(0).substr(1, row.at(0).size() - 2);  // between the backticks
    const MaskTexts texts = readMask(mask, "20240315");
    EXPECT_EQ(std::to_string(textToLong(texts.low)), row.at(1)) << mask;
    EXPECT_EQ(std::to_string(textToLong(texts.high)), row.at(2)) << mask;
  }
}

TEST(Manual, IsReachedFromTheReadme) {
  EXPECT_NE(test::contentOf(project / "README.md").find("(docs/handbuch.md)"), std::string::npos);
}

TEST(Manual, LeadsToChaptersThatExist) {
  const std::string text = manual();
  std::set<std::string> anchors;
  for (const std::string& line : linesOf(text)) {
    if (line[0] != '#') continue;
    std::string anchor;
    for (const char c : line.substr(line.find(' ') + 1)) {
      if (c == ' ') anchor += '-';
      if (static_cast<unsigned char>(c) >= 0x80 || std::isalnum(static_cast<unsigned char>(c)) != 0)
        anchor += static_cast<char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
    }
    anchors.insert(anchor);
  }
  int links = 0;
  for (std::size_t at = text.find("](#"); at != std::string::npos; at = text.find("](#", at + 1)) {
    const std::string anchor = text.substr(at + 3, text.find(')', at) - at - 3);
    EXPECT_EQ(anchors.count(anchor), 1U) << anchor;
    ++links;
  }
  EXPECT_GT(links, 15);
}

// The pictures of all documents.

std::vector<fs::path> documents() {
  std::vector<fs::path> found = {project / "README.md", project / "CONTRIBUTING.md"};
  for (const auto& entry : fs::recursive_directory_iterator(project / "docs"))
    if (entry.path().extension() == ".md") found.push_back(entry.path());
  return found;
}

std::set<fs::path> picturesIn(const fs::path& document) {
  const std::string text = test::contentOf(document);
  std::set<fs::path> pictures;
  for (std::size_t at = text.find("!["); at != std::string::npos; at = text.find("![", at + 1)) {
    const std::size_t begin = text.find("](", at) + 2;
    const fs::path link = text.substr(begin, text.find(')', begin) - begin);
    pictures.insert((document.parent_path() / link).lexically_normal());
  }
  return pictures;
}

TEST(Pictures, OfEveryDocumentExist) {
  for (const fs::path& document : documents())
    for (const fs::path& picture : picturesIn(document))
      EXPECT_TRUE(fs::is_regular_file(picture)) << document << ": " << picture;
}

TEST(Pictures, OfTheManualAreAllShownAndSmall) {
  std::set<fs::path> there;
  for (const auto& entry : fs::directory_iterator(project / "docs" / "bilder" / "handbuch")) {
    there.insert(entry.path().lexically_normal());
    EXPECT_LT(entry.file_size(), 100'000U) << entry.path();
  }
  EXPECT_EQ(there, picturesIn(manualFile));
}

}  // namespace
}  // namespace vexnumkr
