#include <algorithm>
#include <fstream>
#include <functional>
#include <iostream>
#include <memory>
#include <ostream>

#include <vexnumkr/error.h>
#include <vexnumkr/number_gaps.h>

#include "cli/commands/commands.h"
#include "cli/exit_status.h"
#include "cli/numbers_file.h"
#include "cli/printable.h"
#include "cli/progress.h"
#include "cli/text_table.h"
#include "cli/transfer/wanted_file.h"
#include "cli/usage_error.h"

namespace vexnumkr::cli {
namespace {

using numbers::GapFinding;
using numbers::GapKind;

struct GapOptions {
  std::string key;
  std::string source;
  std::string ranges;
  std::optional<std::int32_t> circle;

  const std::int32_t* circleOrNull() const { return circle ? &*circle : nullptr; }
};

// What has been found so far; the findings themselves are printed as they come.
struct Tally {
  std::uint64_t gaps = 0;
  std::uint64_t missing = 0;
  std::uint64_t ahead = 0;
  std::uint64_t duplicates = 0;
  std::uint64_t strays = 0;
  std::uint64_t unreadable = 0;
  std::uint64_t skipped = 0;

  bool isFine() const {
    return gaps == 0 && ahead == 0 && duplicates == 0 && strays == 0 && unreadable == 0 &&
           skipped == 0;
  }
};

const char* germanNameOf(GapKind kind) {
  switch (kind) {
    case GapKind::gap:
      return "Lücke";
    case GapKind::ahead:
      return "noch nicht vergeben";
    case GapKind::duplicate:
      return "mehrfach";
    case GapKind::stray:
      break;
  }
  return "in keinem Nummernkreis";
}

std::string interval(const numbers::Interval& numbers) {
  const std::string first = std::to_string(numbers.first);
  return numbers.count() == 1 ? first : first + "–" + std::to_string(numbers.last);
}

std::string rangeTitle(const numbers::Company& company, const numbers::Range& range) {
  return "Nummernkreis \"" + range.key + "\", " + company.circleName(range.circle) + " (vergeben " +
         std::to_string(std::int64_t{*range.start} + 1) + "–" + std::to_string(*range.current) +
         "):";
}

class Printer {
 public:
  Printer(Session& session, const numbers::Company& company)
      : session_(session), company_(company) {}

  void print(const GapFinding& finding) {
    count(finding);
    session_.json() ? printObject(finding) : printText(finding);
  }

  void printUnreadable(std::uint64_t line, const std::string& text) {
    constexpr std::uint64_t shown = 10;
    ++tally_.unreadable;
    if (session_.json()) {
      session_.printLine({{"kind", "unreadable"}, {"line", line}, {"text", text}});
    } else if (tally_.unreadable <= shown) {
      session_.out() << "Zeile " << line << " ist keine Nummer: " << printable(text) << '\n';
    }
  }

  // Nobody can say what a range has issued whose values are missing or contradict each other.
  void printSkipped(const numbers::Range& range) {
    ++tally_.skipped;
    const auto shown = [](const std::optional<std::int32_t>& value) {
      return value ? std::to_string(*value) : std::string("NULL");
    };
    const std::string text = "Nummernkreis \"" + range.key + "\", " +
                             company_.circleName(range.circle) + " wird nicht verglichen: Start " +
                             shown(range.start) + ", aktuell " + shown(range.current) +
                             " und Ende " + shown(range.end) + " passen nicht zueinander.";
    if (session_.json()) {
      session_.printLine(
          {{"kind", "skipped"}, {"key", range.key}, {"circle", range.circle}, {"text", text}});
    } else {
      session_.out() << printable(text) << '\n';
    }
  }

  int finish(std::uint64_t read) {
    if (session_.json()) {
      session_.printLine({{"kind", "summary"},
                          {"numbers", read},
                          {"gaps", tally_.gaps},
                          {"missing", tally_.missing},
                          {"ahead", tally_.ahead},
                          {"duplicates", tally_.duplicates},
                          {"strays", tally_.strays},
                          {"unreadable", tally_.unreadable},
                          {"skipped", tally_.skipped}});
    } else {
      session_.out() << summary(read) << '\n';
    }
    return tally_.isFine() ? exit_status::fine : exit_status::findings;
  }

 private:
  void count(const GapFinding& finding) {
    const auto numbers = static_cast<std::uint64_t>(finding.numbers.count());
    switch (finding.kind) {
      case GapKind::gap:
        ++tally_.gaps;
        tally_.missing += numbers;
        break;
      case GapKind::ahead:
        tally_.ahead += numbers;
        break;
      case GapKind::duplicate:
        tally_.duplicates += numbers;
        break;
      case GapKind::stray:
        tally_.strays += numbers;
        break;
    }
  }

  void printObject(const GapFinding& finding) {
    Json object{{"kind", numbers::nameOf(finding.kind)},
                {"first", finding.numbers.first},
                {"last", finding.numbers.last},
                {"count", finding.numbers.count()}};
    if (finding.range != nullptr) {
      object["key"] = finding.range->key;
      object["circle"] = finding.range->circle;
    }
    session_.printLine(object);
  }

  void printText(const GapFinding& finding) {
    if (finding.range != nullptr && finding.range != titled_) {
      session_.out() << printable(rangeTitle(company_, *finding.range)) << '\n';
      titled_ = finding.range;
    }
    session_.out() << (finding.range == nullptr ? "" : "  ") << germanNameOf(finding.kind) << ": "
                   << interval(finding.numbers);
    if (finding.numbers.count() > 1)
      session_.out() << " (" << grouped(finding.numbers.count()) << " Nummern)";
    session_.out() << '\n';
  }

  std::string summary(std::uint64_t read) const {
    const auto part = [](std::uint64_t number, const std::string& text) {
      return number == 0 ? std::string()
                         : ", " + grouped(static_cast<std::int64_t>(number)) + " " + text;
    };
    std::string text = counted(static_cast<std::int64_t>(read), "Nummer", "Nummern") + " gelesen";
    if (tally_.isFine()) return text + ": keine Lücke, keine doppelt, alle im Nummernkreis.";
    if (tally_.gaps > 0)
      text += ", " + counted(static_cast<std::int64_t>(tally_.gaps), "Lücke", "Lücken") + " mit " +
              counted(static_cast<std::int64_t>(tally_.missing), "Nummer", "Nummern");
    return text + part(tally_.ahead, "noch nicht vergeben") + part(tally_.duplicates, "mehrfach") +
           part(tally_.strays, "in keinem Nummernkreis") + part(tally_.unreadable, "unlesbar") +
           (tally_.skipped == 0 ? ""
                                : ", " +
                                      counted(static_cast<std::int64_t>(tally_.skipped),
                                              "Nummernkreis", "Nummernkreise") +
                                      " nicht verglichen") +
           ".";
  }

  Session& session_;
  const numbers::Company& company_;
  Tally tally_;
  const numbers::Range* titled_ = nullptr;
};

std::string lowerCase(std::string text) {
  for (char& c : text)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  return text;
}

// Behind blanks, comments and opening brackets.
std::string firstWord(std::string_view text) {
  const auto skipBehind = [&](std::string_view end) {
    const std::size_t at = text.find(end);
    text.remove_prefix(at == std::string_view::npos ? text.size() : at + end.size());
  };
  for (;;) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n("), text.size()));
    if (text.starts_with("--")) {
      skipBehind("\n");
    } else if (text.starts_with("/*")) {
      skipBehind("*/");
    } else {
      return lowerCase(std::string(text.substr(0, text.find_first_of(" \t\r\n(*/-"))));
    }
  }
}

bool isSelect(const std::string& source) {
  const std::string word = firstWord(source);
  return word == "select" || word == "with";
}

// Without what would end the statement that it becomes a part of.
std::string withoutSemicolon(std::string select) {
  select.erase(select.find_last_not_of(" \t\r\n;") + 1);
  return select;
}

void readLines(std::istream& lines, numbers::UsedNumbers& used, Printer& printer) {
  Progress progress("Nummern gelesen:");
  readNumbers(lines, {.number = [&](std::int32_t number) { used.add(number); },
                      .unreadable =
                          [&](std::uint64_t line, const std::string& text) {
                            progress.clear();
                            printer.printUnreadable(line, text);
                          },
                      .progress = [&](std::uint64_t read) { progress.show(read); }});
}

void readFile(const std::string& file, numbers::UsedNumbers& used, Printer& printer) {
  if (file == "-") return readLines(std::cin, used, printer);
  std::ifstream lines(file);
  if (!lines) throw UsageError("Die Datei " + file + " ist nicht zu lesen.");
  readLines(lines, used, printer);
}

void readSelect(Connection& connection, const std::string& source, numbers::UsedNumbers& used,
                Printer& printer) {
  Progress progress("Nummern gelesen:");
  try {
    numbers::addSelected(used, connection, withoutSemicolon(source),
                         {.unreadable =
                              [&](std::uint64_t row, const std::string& text) {
                                progress.clear();
                                printer.printUnreadable(row, text);
                              },
                          .progress = [&](std::uint64_t rows) { progress.show(rows); }});
  } catch (const Error& error) {
    throw Error(error.number(), error.source(),
                error.description() +
                    "\nGefragt wurde nach den Nummern von --numbers-from; ihre Spalte muss Nummer "
                    "heißen.");
  }
}

UsageError nothingToCompare(const numbers::Company& company, const std::string& key) {
  for (const numbers::Range& range : company.ranges)
    if (range.key == key && !range.sharedKey.empty())
      return UsageError("\"" + key + "\" hat keine eigenen Nummern, sondern zieht aus \"" +
                        range.sharedKey + "\"; bitte --key " + range.sharedKey + " angeben.");
  return UsageError("Für \"" + key + "\" gibt es hier keinen Nummernkreis.");
}

// Reads the numbers by `read` and compares them.
int compare(Session& session, const GapOptions& options, const numbers::Company& company,
            const std::function<void(numbers::UsedNumbers&, Printer&)>& read) {
  const auto ranges = numbers::rangesToCompare(company, options.key, options.circleOrNull());
  const auto skipped = numbers::rangesNotToCompare(company, options.key, options.circleOrNull());
  if (ranges.empty() && skipped.empty()) throw nothingToCompare(company, options.key);
  Printer printer(session, company);
  for (const numbers::Range* range : skipped) printer.printSkipped(*range);
  numbers::UsedNumbers used;
  read(used, printer);
  numbers::findGaps(used, ranges, [&](const GapFinding& finding) { printer.print(finding); });
  return printer.finish(used.count());
}

// Without current values nobody can say what was issued.
numbers::Company companyIn(const Session& session, const std::string& file) {
  numbers::Company company = readWantedCompany(session, file).company;
  const bool hasCurrent =
      std::any_of(company.ranges.begin(), company.ranges.end(),
                  [](const numbers::Range& range) { return range.current.has_value(); });
  if (!hasCurrent)
    throw UsageError("In " + file +
                     " fehlen die aktuellen Werte; sie muss mit export --with-current geschrieben "
                     "sein.");
  return company;
}

int runGaps(Session& session, const GapOptions& options) {
  const bool asksDatabase = isSelect(options.source);
  const auto read = [&](numbers::UsedNumbers& used, Printer& printer) {
    asksDatabase ? readSelect(session.connection(), options.source, used, printer)
                 : readFile(options.source, used, printer);
  };
  std::optional<numbers::Company> company;
  if (!options.ranges.empty()) company = companyIn(session, options.ranges);
  if (!company && !asksDatabase) company = session.company();
  if (company && !asksDatabase) return compare(session, options, *company, read);
  // Numbers that are drawn meanwhile would be taken for ones that nobody has issued yet.
  int status = exit_status::fine;
  numbers::readAtOneMoment(session.connection(), [&] {
    if (!company) company = session.companyInTransaction();
    status = compare(session, options, *company, read);
  });
  return status;
}

}  // namespace

void addGaps(CommandSet& commands) {
  const auto options = std::make_shared<GapOptions>();
  Command command = commands.add(
      {"gaps", "Vergleicht die wirklich benutzten Nummern mit den Nummernkreisen.",
       "gaps --application 1 --key RE --numbers-from \"SELECT Nr AS Nummer FROM Rechnungen\""},
      Needs::application, [options](Session& session) { return runGaps(session, *options); });
  command.addText({"--key", "NSCHL", "der Nummernschlüssel, z. B. RE"}, options->key,
                  Presence::required);
  command.addText({"--numbers-from", "SQL|DATEI",
                   "die benutzten Nummern: ein SELECT, dessen Spalte Nummer heißt, oder eine Datei "
                   "mit einer Nummer je Zeile; - liest die Standardeingabe"},
                  options->source, Presence::required);
  command.addText({"--ranges-from", "DATEI",
                   "vergleicht mit den Nummernkreisen in dieser Datei von export --with-current, "
                   "z. B. der von vor dem Jahreswechsel"},
                  options->ranges);
  command.addNumber({"--circle", "N", "nur der Nummernkreis dieses Buchungskreises"},
                    options->circle);
}

}  // namespace vexnumkr::cli
