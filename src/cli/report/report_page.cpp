#include "cli/report/report_page.h"

#include <algorithm>
#include <iomanip>
#include <map>
#include <optional>
#include <ostream>
#include <sstream>
#include <utility>

#include <vexnumkr/numbers.h>

#include "cli/fill_level.h"
#include "cli/printable.h"
#include "cli/report/keys_of_users.h"
#include "cli/report/report_style.h"
#include "cli/text_table.h"

namespace vexnumkr::cli {
namespace {

using numbers::Assignment;
using numbers::CheckResult;
using numbers::Company;
using numbers::Finding;
using numbers::FindingKind;
using numbers::Range;
using numbers::RangeLevel;
using numbers::Severity;

// For texts and for attributes in double quotes.
std::string escaped(const std::string& text) {
  std::string result;
  for (const char c : text) {
    switch (c) {
      case '&':
        result += "&amp;";
        break;
      case '<':
        result += "&lt;";
        break;
      case '>':
        result += "&gt;";
        break;
      case '"':
        result += "&quot;";
        break;
      default:
        // HTML has no room for control characters.
        result += isControl(c) ? ' ' : c;
    }
  }
  return result;
}

std::string percentText(double percent, char point, int decimals = 1) {
  std::ostringstream text;
  text << std::fixed << std::setprecision(decimals) << percent;
  std::string result = text.str();
  std::replace(result.begin(), result.end(), '.', point);
  return result;
}

std::string germanDate(const std::string& date) {
  return date.substr(6, 2) + "." + date.substr(4, 2) + "." + date.substr(0, 4);
}

class ReportWriter {
 public:
  ReportWriter(std::ostream& out, const Company& company, const CheckResult& result)
      : out_(out), company_(company), result_(result) {
    for (const Finding& finding : result.findings)
      if (finding.kind == FindingKind::exhausted || finding.kind == FindingKind::nearlyFull)
        worst_.emplace(std::pair(finding.circle, finding.key), finding.severity);
  }

  void write(const ReportHeading& heading) {
    out_ << "<!DOCTYPE html>\n<html lang=\"de\">\n<head>\n<meta charset=\"utf-8\">\n"
            "<meta name=\"viewport\" content=\"width=device-width\">\n<title>Nummernkreise, "
            "Anwendung "
         << company_.application << "</title>\n<style>" << reportStyle
         << "</style>\n</head>\n<body>\n";
    writeHeading(heading);
    writeFindings();
    writeLevels();
    writeSequences();
    writeUsers();
    out_ << "</body>\n</html>\n";
  }

 private:
  void writeHeading(const ReportHeading& heading) {
    out_ << "<header>\n<h1>Nummernkreise</h1>\n<p class=\"soft\">Anwendung " << company_.application
         << " · Datenbank " << escaped(heading.database) << " · erstellt am "
         << escaped(heading.made) << " · Masken nach dem " << germanDate(heading.date)
         << "</p>\n<p>"
         << counted(static_cast<std::int64_t>(company_.ranges.size()), "Nummernkreis",
                    "Nummernkreise")
         << ", "
         << counted(static_cast<std::int64_t>(company_.circles.size()), "Buchungskreis",
                    "Buchungskreise")
         << ", " << grouped(static_cast<std::int64_t>(company_.users.size())) << " Benutzer, "
         << counted(static_cast<std::int64_t>(company_.assignments.size()), "Zuordnung",
                    "Zuordnungen")
         << "</p>\n</header>\n";
  }

  void writeFindings() {
    out_ << "<section id=\"befunde\">\n<h2>Befunde</h2>\n";
    if (result_.findings.empty()) {
      out_ << "<p>Alles in Ordnung.</p>\n</section>\n";
      return;
    }
    out_ << "<p data-critical=\"" << result_.count(Severity::critical) << "\" data-warnings=\""
         << result_.count(Severity::warning) << "\">"
         << grouped(static_cast<std::int64_t>(result_.count(Severity::critical))) << " kritisch, "
         << counted(static_cast<std::int64_t>(result_.count(Severity::warning)), "Warnung",
                    "Warnungen")
         << "</p>\n<ul class=\"findings\">\n";
    for (const Finding& finding : result_.findings) {
      const bool critical = finding.severity == Severity::critical;
      out_ << "<li class=\"" << (critical ? "critical" : "warning") << "\"><b>"
           << (critical ? "Kritisch" : "Warnung") << ":</b> " << escaped(finding.text) << "</li>\n";
    }
    out_ << "</ul>\n</section>\n";
  }

  // As bad as the check has found it to be.
  const char* classOf(const Range& range) const {
    const auto found = worst_.find({range.circle, range.key});
    if (found == worst_.end()) return "fine";
    return found->second == Severity::critical ? "critical" : "warning";
  }

  void writeLevels() {
    out_ << "<section id=\"fuellstaende\">\n<h2>Füllstände</h2>\n<div "
            "class=\"wide\"><table>\n<thead><tr><th>Belegart"
            "</th><th>Buchungskreis</th><th class=\"number\">von</th><th class=\"number\">bis</th>"
            "<th class=\"number\">zuletzt</th><th class=\"number\">frei</th><th>belegt</th></tr>"
            "</thead>\n<tbody>\n";
    auto level = result_.levels.begin();
    for (const Range* range : result_.checked) {
      const bool hasLevel = level != result_.levels.end() && level->range == range;
      if (hasLevel)
        writeLevel(*level++);
      else if (range->sharedKey.empty())
        writeBroken(*range);
    }
    out_ << "</tbody>\n</table></div>\n</section>\n";
  }

  static std::string shown(const std::optional<std::int32_t>& value) {
    return value ? std::to_string(*value) : std::string("fehlt");
  }

  // Its values contradict each other, so nobody can say how full it is.
  void writeBroken(const Range& range) {
    out_ << "<tr class=\"critical\" data-key=\"" << escaped(range.key) << "\" data-circle=\""
         << range.circle << "\" data-broken=\"1\"><td>" << escaped(range.description) << " ("
         << escaped(range.key) << ")</td><td>" << escaped(company_.circleName(range.circle));
    for (const auto& value : {range.start, range.end, range.current})
      out_ << "</td><td class=\"number\">" << shown(value);
    out_ << "</td><td class=\"number\">–</td><td class=\"level\"><b>fehlerhaft</b></td></tr>\n";
  }

  void writeLevel(const RangeLevel& level) {
    const Range& range = *level.range;
    const std::string percent = percentOf(level, '.');
    out_ << "<tr class=\"" << classOf(range) << "\" data-key=\"" << escaped(range.key)
         << "\" data-circle=\"" << range.circle << "\" data-start=\"" << *range.start
         << "\" data-current=\"" << *range.current << "\" data-end=\"" << *range.end
         << "\" data-left=\"" << level.left() << "\"><td>" << escaped(range.description) << " ("
         << escaped(range.key) << ")</td><td>" << escaped(company_.circleName(range.circle))
         << "</td><td class=\"number\">" << *range.start << "</td><td class=\"number\">"
         << *range.end << "</td><td class=\"number\">" << *range.current
         << "</td><td class=\"number\">" << grouped(level.left())
         << "</td><td class=\"level\"><div class=\"bar\"><span style=\"width:" << percent
         << "%\"></span></div>" << percentOf(level, ',') << " %</td></tr>\n";
  }

  void writeSequences() {
    std::map<std::string, std::vector<const Range*>> sequences;
    for (const Range* range : result_.checked)
      if (range->start && range->end && *range->start < *range->end)
        sequences[range->sequence()].push_back(range);
    out_ << "<section id=\"folgen\">\n<h2>Nummernfolgen</h2>\n<p class=\"soft\">Jede Folge als "
            "Zahlenstrahl vom ersten bis zum letzten Nummernkreis, darunter die Nummernkreise und "
            "die freien Nummern dazwischen.</p>\n";
    for (auto& [key, ranges] : sequences) {
      std::stable_sort(ranges.begin(), ranges.end(),
                       [](const Range* a, const Range* b) { return *a->start < *b->start; });
      writeSequence(key, ranges);
    }
    out_ << "</section>\n";
  }

  // The description that most likely stands for the whole sequence is that of its own key.
  static std::string titleOf(const std::string& key, const std::vector<const Range*>& ranges) {
    const auto own = std::find_if(ranges.begin(), ranges.end(),
                                  [&](const Range* range) { return range->key == key; });
    return own == ranges.end() ? key : (*own)->description + " (" + key + ")";
  }

  void writeSequence(const std::string& key, const std::vector<const Range*>& ranges) {
    out_ << "<div class=\"sequence\"><h3>" << escaped(titleOf(key, ranges)) << "</h3>\n";
    writeScale(ranges);
    out_ << "<ol class=\"line\">\n";
    std::int64_t next = *ranges.front()->start;
    for (std::size_t at = 0; at < ranges.size(); ++at) {
      const Range* const range = ranges[at];
      if (*range->start > next)
        out_ << "<li class=\"gap\">" << grouped(*range->start - next) << " frei</li>\n";
      const bool meetsNext = at + 1 < ranges.size() && *ranges[at + 1]->start <= *range->end;
      out_ << "<li class=\"range" << (*range->start < next || meetsNext ? " overlap" : "") << "\">"
           << *range->start << "–" << *range->end << "<br>"
           << escaped(range->key == key ? "" : range->key + ", ")
           << escaped(company_.circleName(range->circle)) << "</li>\n";
      next = std::max(next, std::int64_t{*range->end} + 1);
    }
    out_ << "</ol></div>\n";
  }

  // Where each range lies between the first number and the last, and how much of it is issued. A
  // range that is too short to be seen is shown at its least width.
  void writeScale(const std::vector<const Range*>& ranges) {
    const std::int64_t first = *ranges.front()->start;
    std::int64_t last = first;
    for (const Range* range : ranges) last = std::max(last, std::int64_t{*range->end});
    const auto percentOf = [&](std::int64_t numbers, std::int64_t all) {
      return percentText(100.0 * static_cast<double>(numbers) / static_cast<double>(all), '.', 3);
    };
    out_ << "<div class=\"scale\">";
    for (const Range* range : ranges) {
      const std::int64_t numbers = std::int64_t{*range->end} - *range->start;
      const std::int64_t issued = std::clamp<std::int64_t>(
          range->current ? std::int64_t{*range->current} - *range->start : 0, 0, numbers);
      out_ << "<span class=\"" << classOf(*range)
           << "\" style=\"left:" << percentOf(*range->start - first, last - first)
           << "%;width:" << percentOf(numbers, last - first) << "%\" title=\"" << *range->start
           << "–" << *range->end << ' ' << escaped(company_.circleName(range->circle))
           << "\"><i style=\"width:" << percentOf(issued, numbers) << "%\"></i></span>";
    }
    out_ << "</div>\n";
  }

  // Assignments name circles by their numbers.
  void writeCircles() {
    out_ << "<p class=\"soft\">Buchungskreise: 0 Standard";
    for (const numbers::Circle& circle : company_.circles)
      out_ << ", " << circle.number << ' ' << escaped(circle.description);
    out_ << "</p>\n";
  }

  void writeUsers() {
    const KeysOfUsers users(company_);
    out_ << "<section id=\"benutzer\">\n<h2>Benutzer und ihre Nummernkreise</h2>\n";
    writeCircles();
    out_ << "<div class=\"wide\"><table>\n<thead><tr><th>Benutzer</th><th>Nummernschlüssel: "
            "Buchungskreise</th></tr>"
            "</thead>\n<tbody>\n";
    for (const std::string_view user : users.users()) {
      const bool isCommon = user == numbers::everybody;
      const std::string name = escaped(std::string(user));
      out_ << "<tr data-user=\"" << name << "\"><td>" << (isCommon ? "Alle Benutzer" : name)
           << "</td><td>";
      bool hasKeys = false;
      users.forEachKey(user, [&](const std::string& key, const std::vector<std::int32_t>& circles) {
        writeKey(key, circles);
        hasKeys = true;
      });
      if (!hasKeys) out_ << "<span class=\"soft\">keine eigenen</span>";
      out_ << "</td></tr>\n";
    }
    out_ << "</tbody>\n</table></div>\n</section>\n";
  }

  void writeKey(const std::string& key, const std::vector<std::int32_t>& circles) {
    out_ << "<span class=\"key\"><b>" << escaped(key) << "</b>:";
    for (std::size_t first = 0; first < circles.size();) {
      std::size_t last = first;
      while (last + 1 < circles.size() && circles[last + 1] == circles[last] + 1) ++last;
      out_ << ' ' << circles[first];
      if (last > first) out_ << (last == first + 1 ? " " : "–") << circles[last];
      first = last + 1;
    }
    out_ << "</span> ";
  }

  std::ostream& out_;
  const Company& company_;
  const CheckResult& result_;
  std::map<std::pair<std::int32_t, std::string>, Severity> worst_;
};

}  // namespace

void writeReport(std::ostream& out, const Company& company, const CheckResult& result,
                 const ReportHeading& heading) {
  ReportWriter(out, company, result).write(heading);
}

}  // namespace vexnumkr::cli
