#include <chrono>
#include <deque>
#include <map>
#include <optional>
#include <utility>

#include <vexnumkr/error.h>
#include <vexnumkr/number_journal.h>
#include <vexnumkr/value.h>

#include "numbers/company_rows.h"
#include "numbers/journal/row_fold.h"
#include "numbers/origin.h"
#include "numbers/query.h"
#include "numbers/sql/statements.h"

namespace vexnumkr::numbers {
namespace {

using Time = std::chrono::milliseconds;

// "2026-11-22T09:30:00.123Z" since 1970. Error: 13 for another text.
Time readTime(const std::string& text) {
  if (text.size() != std::string_view("2026-11-22T09:30:00.123Z").size())
    throw Error::typeMismatch();
  const auto part = [&](std::size_t at, std::size_t length) {
    return textToLong(std::string_view(text).substr(at, length));
  };
  const std::chrono::sys_days day{std::chrono::year(part(0, 4)) /
                                  std::chrono::month(static_cast<unsigned>(part(5, 2))) /
                                  std::chrono::day(static_cast<unsigned>(part(8, 2)))};
  return std::chrono::duration_cast<Time>(
      day.time_since_epoch() + std::chrono::hours(part(11, 2)) + std::chrono::minutes(part(14, 2)) +
      std::chrono::seconds(part(17, 2)) + std::chrono::milliseconds(part(20, 3)));
}

// Nothing for what somebody has written by hand.
std::optional<Time> timeOf(const std::string& text) {
  try {
    return readTime(text);
  } catch (const Error&) {
    return std::nullopt;
  }
}

// Who, in which session and transaction; the latter only where the engine tells.
using Place = std::pair<std::string, std::string>;

struct Line {
  std::string time;
  std::string login;
  std::string user;
  Place place;
  std::string table;
  std::string action;  ///< "neu", "weg", "vorher" and "nachher"
  Time at{};           ///< `time`, or that of the line before where it is none
};

// Blanks around a mask mean nothing, and saving leaves them out.
Range journalRangeIn(const Recordset& row) {
  Range range = rangeIn(row);
  range.mask = std::string(trimBlanks(range.mask));
  return range;
}

bool isGone(const Line& line) { return line.action == "weg" || line.action == "vorher"; }

Line lineOf(const Recordset& row) {
  return {textOf(row, "Zeitpunkt"), textOf(row, "Anmeldung"),
          textOf(row, "Anwender"),  {textOf(row, "Sitzung"), textOf(row, "Vorgang")},
          textOf(row, "Tabelle"),   textOf(row, "Aktion")};
}

template <class Row>
void fold(RowFold<Row>& rows, const Line& line, const Recordset& row,
          Row (*read)(const Recordset&)) {
  OwnedRow<Row> owned{textOf(row, "Herkunft"), read(row)};
  isGone(line) ? rows.gone(std::move(owned)) : rows.come(std::move(owned));
}

// What one of them has done at a time.
class Work {
 public:
  explicit Work(const Line& line) : place_(line.place) { note(line); }

  void note(const Line& line) {
    time_ = line.time;
    login_ = line.login;
    user_ = line.user;
    last_ = line.at;
  }

  // A transaction may wait for its user; without one, only what follows at once belongs together.
  bool isOverAt(Time time) const {
    const Time pause = place_.second.empty() ? Time(2'000) : Time(3'600'000);
    return isClosed_ || time - last_ > pause;
  }
  void close() { isClosed_ = true; }

  RowFold<Circle>& circles() { return circles_; }
  RowFold<Range>& ranges() { return ranges_; }
  RowFold<Assignment>& assignments() { return assignments_; }
  RowFold<SpecialRange>& specialRanges() { return specialRanges_; }

  JournalEntry entry(std::int32_t application) const {
    JournalEntry entry{time_, login_, user_, {}};
    add(entry, application, circles_, &RowChanges::circles);
    add(entry, application, ranges_, &RowChanges::ranges);
    add(entry, application, assignments_, &RowChanges::assignments);
    add(entry, application, specialRanges_, &RowChanges::specialRanges);
    return entry;
  }

 private:
  template <class Row>
  static void add(JournalEntry& entry, std::int32_t asked, const RowFold<Row>& rows,
                  std::vector<RowChange<Row>> RowChanges::*table) {
    rows.forEachChange([&](const std::string& origin, const RowChange<Row>& change) {
      const std::int32_t application = applicationOf(origin);
      if (asked != 0 && application != 0 && application != asked) return;
      RowChanges one;
      (one.*table).push_back(change);
      entry.changes.push_back({application, described(one).front()});
    });
  }

  Place place_;
  std::string time_;
  std::string login_;
  std::string user_;
  Time last_{};
  bool isClosed_ = false;
  RowFold<Circle> circles_;
  RowFold<Range> ranges_;
  RowFold<Assignment> assignments_;
  RowFold<SpecialRange> specialRanges_;
};

class Reading {
 public:
  Reading(std::int32_t application, const std::function<void(const JournalEntry&)>& found)
      : application_(application), found_(found) {}

  void read(const Recordset& row) {
    Line line = lineOf(row);
    now_ = timeOf(line.time).value_or(now_);
    line.at = now_;
    tellWhatIsOver(now_);
    if (line.table == "Nummernkreise") {
      readRange(line, row);
    } else if (line.table == "Nummernkreis_Buchungskreise") {
      fold(workOf(line).circles(), line, row, circleIn);
    } else if (line.table == "Nummernkreis_Zuordnung") {
      fold(workOf(line).assignments(), line, row, assignmentIn);
    } else if (line.table == "Nummernkreis_Sonderkreise") {
      fold(workOf(line).specialRanges(), line, row, specialRangeIn);
    }
  }

  void finish() {
    for (; !works_.empty(); works_.pop_front()) tell(works_.front());
  }

 private:
  // The two lines of an update are looked at together: a drawn number stands by itself.
  void readRange(const Line& line, const Recordset& row) {
    const Range range = journalRangeIn(row);
    if (line.action == "vorher") {
      before_[line.place] = range;
      return;
    }
    if (line.action != "nachher") return fold(workOf(line).ranges(), line, row, journalRangeIn);
    const auto before = before_.extract(line.place);
    if (before.empty()) return fold(workOf(line).ranges(), line, row, journalRangeIn);
    Range drawn = before.mapped();
    drawn.current = range.current;
    const bool isDraw = isSame(drawn, range);
    Work& work = isDraw ? works_.emplace_back(line) : workOf(line);
    if (isDraw) work.close();
    work.ranges().gone({{}, before.mapped()});
    work.ranges().come({{}, range});
  }

  Work& workOf(const Line& line) {
    const auto open = open_.find(line.place);
    if (open != open_.end() && !open->second->isOverAt(line.at)) {
      open->second->note(line);
      return *open->second;
    }
    Work& work = works_.emplace_back(line);
    open_.insert_or_assign(line.place, &work);
    return work;
  }

  void tellWhatIsOver(Time now) {
    for (; !works_.empty() && works_.front().isOverAt(now); works_.pop_front()) {
      std::erase_if(open_, [&](const auto& open) { return open.second == &works_.front(); });
      tell(works_.front());
    }
  }

  void tell(const Work& work) const {
    const JournalEntry entry = work.entry(application_);
    if (!entry.changes.empty()) found_(entry);
  }

  std::int32_t application_;
  const std::function<void(const JournalEntry&)>& found_;
  Time now_{};
  std::deque<Work> works_;  // In the order in which they were begun; they stay where they are.
  std::map<Place, Work*> open_;
  std::map<Place, Range> before_;
};

}  // namespace

bool hasJournal(Connection& connection) {
  try {
    select(connection, statement::journalProbe());
    return true;
  } catch (const Error&) {
    return false;
  }
}

void readJournal(Connection& connection, const JournalOptions& options,
                 const std::function<void(const JournalEntry&)>& found) {
  constexpr std::int32_t linesAtOnce = 5000;
  const Literals literals(connection);
  Reading reading(options.application, found);
  std::string last = "0";
  for (bool goesOn = true; goesOn;) {
    const auto rows = select(
        connection, statement::journal(literals, options.since, options.before, last, linesAtOnce));
    goesOn = !rows->EndOfFile();
    for (; !rows->EndOfFile(); rows->MoveNext()) {
      reading.read(*rows);
      last = textOf(*rows, "Nr");
    }
    rows->Close();
  }
  reading.finish();
}

}  // namespace vexnumkr::numbers
