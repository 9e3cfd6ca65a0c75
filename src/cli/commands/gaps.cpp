#include <algorithm>
#include <fstream>
#include <iostream>
#include <memory>
#include <ostream>

#include <vexnumkr/error.h>
#include <vexnumkr/number_gaps.h>

#include "cli/commands/commands.h"
#include "cli/exit_status.h"
#include "cli/numbers_file.h"
#include "cli/progress.h"
#include "cli/text_table.h"
#include "cli/usage_error.h"

namespace vexnumkr::cli {
namespace {

using numbers::GapFinding;
using numbers::GapKind;

struct GapOptions {
  std::string key;
  std::string source;
  std::optional<std::int32_t> circle;
};

// What has been found so far; the findings themselves are printed as they come.
struct Tally {
  std::uint64_t gaps = 0;
  std::uint64_t missing = 0;
  std::uint64_t ahead = 0;
  std::uint64_t duplicates = 0;
  std::uint64_t strays = 0;
  std::uint64_t unreadable = 0;

  bool isFine() const {
    return gaps == 0 && ahead == 0 && duplicates == 0 && strays == 0 && unreadable == 0;
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

// Without what a terminal would take for orders.
std::string printable(std::string text) {
  std::replace_if(
      text.begin(), text.end(),
      [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == '\x7F'; }, '?');
  return text;
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

  int finish(std::uint64_t read) {
    if (session_.json()) {
      session_.printLine({{"kind", "summary"},
                          {"numbers", read},
                          {"gaps", tally_.gaps},
                          {"missing", tally_.missing},
                          {"ahead", tally_.ahead},
                          {"duplicates", tally_.duplicates},
                          {"strays", tally_.strays},
                          {"unreadable", tally_.unreadable}});
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
      session_.out() << rangeTitle(company_, *finding.range) << '\n';
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

bool isSelect(const std::string& source) {
  const std::string word = lowerCase(source.substr(0, source.find_first_of(" \t\r\n(")));
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

void readSelect(Connection& connection, const std::string& source, numbers::UsedNumbers& used) {
  Progress progress("Nummern gelesen:");
  try {
    numbers::addSelected(used, connection, withoutSemicolon(source),
                         [&](std::uint64_t read) { progress.show(read); });
  } catch (const Error& error) {
    throw Error(error.number(), error.source(),
                error.description() +
                    "\nGefragt wurde nach den Nummern von --numbers-from; ihre Spalte muss Nummer "
                    "heißen.");
  }
}

int runGaps(Session& session, const GapOptions& options) {
  const numbers::Company company = session.company();
  const auto ranges =
      numbers::rangesToCompare(company, options.key, options.circle ? &*options.circle : nullptr);
  if (ranges.empty())
    throw UsageError("Für \"" + options.key + "\" gibt es hier keinen Nummernkreis.");
  Printer printer(session, company);
  numbers::UsedNumbers used;
  if (isSelect(options.source)) {
    readSelect(session.connection(), options.source, used);
  } else {
    readFile(options.source, used, printer);
  }
  numbers::findGaps(used, ranges, [&](const GapFinding& finding) { printer.print(finding); });
  return printer.finish(used.count());
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
  command.addNumber({"--circle", "N", "nur der Nummernkreis dieses Buchungskreises"},
                    options->circle);
}

}  // namespace vexnumkr::cli
