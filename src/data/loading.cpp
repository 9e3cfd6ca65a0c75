#include "data/loading.h"

#include <algorithm>
#include <memory>
#include <set>
#include <unordered_set>
#include <utility>

#include "data/range_questions.h"
#include "data/range_rows.h"
#include "data/range_table.h"
#include "data/sql/statements.h"
#include "data/stored/stored_range.h"

namespace vexnumkr::basAllgemein {
namespace {

// One run of LoadItems.
class Loading {
 public:
  Loading(const RangeData& data, StatementSource& source, Reporter& reporter, Progress& progress)
      : data_(data),
        source_(source),
        reporter_(reporter),
        progress_(progress),
        questions_(makeRangeQuestions(source, reporter)) {}

  void run() {
    readRanges();
    questions_->expectAssignments(data_);
    spreadOverCircles();
    data_.table.sort(RowOrder::circleAndKey);
    deriveUserRows();
  }

 private:
  void readRanges() {
    const auto records = source_.query(statement::ranges());
    for (; !records->EndOfFile(); records->MoveNext()) {
      const RangeRow range = loadedRange(*records);
      data_.known.read(RangeId::of(range));
      AddDataGroup(data_, *questions_, reporter_, range, false);
    }
    records->Close();
  }

  // The standard range is everybody's fallback, whatever is stored.
  RangeRow loadedRange(const Recordset& record) {
    RangeRow range = storedRange(record, data_.table);
    if (range.isStandard()) range.Aktiviert = true;
    return range;
  }

  // Gives every number key a common row in every booking circle of the origin. The rows that it
  // adds are rarely active, so the work to come is told without them.
  void spreadOverCircles() {
    XArray& table = data_.table;
    progress_.expect(lackingRows() + userRows());
    const std::int32_t rows = table.size();
    for (std::int32_t i = 0; i < rows; ++i) {
      for (const BookingCircle& circle : data_.circles) {
        RangeRow range = table.at(i);
        if (FoundInXArray(table, reporter_, alleBenutzer, circle.Buchungskreis,
                          range.NSchl.str()) != -1)
          continue;
        range.Benutzer = table.text(alleBenutzer);
        range.Buchungskreis = circle.Buchungskreis;
        range.Gruppe = Text();
        AddDataGroup(data_, *questions_, reporter_, range, true);
        progress_.advance();
      }
    }
  }

  // A range that is active for all gets a row for every user; the assignments say whose is active.
  void deriveUserRows() {
    progress_.expect(userRows());
    const bool allDiffer = !hasUserTwice() && !hasEmptyKey();
    std::set<std::pair<std::int32_t, std::uint32_t>> derived;
    const std::int32_t rows = data_.table.size();
    for (std::int32_t i = 0; i < rows; ++i) {
      const RangeRow common = data_.table.at(i);
      if (!common.Aktiviert) continue;
      // Until now all rows are common ones, so looking for a user's would be in vain.
      const bool isFirst = derived.insert({common.Buchungskreis, common.NSchl.id()}).second;
      for (const std::string& user : data_.users) {
        if (user == alleBenutzer) continue;
        if ((isFirst && allDiffer) || !hasRow(common, user)) deriveUserRow(common, user);
        progress_.advance();
      }
    }
  }

  bool hasUserTwice() const {
    const std::unordered_set<std::string> names(data_.users.begin(), data_.users.end());
    return names.size() != data_.users.size();
  }

  // Such a row stands for every range of its booking circle.
  bool hasEmptyKey() const {
    return std::ranges::any_of(data_.table, [](const RangeRow& row) { return row.NSchl.empty(); });
  }

  bool hasRow(const RangeRow& range, const std::string& user) const {
    return FoundInXArray(data_.table, reporter_, user, range.Buchungskreis, range.NSchl.str()) !=
           -1;
  }

  void deriveUserRow(const RangeRow& common, const std::string& user) {
    const std::string& key = common.NSchl.str();
    RangeRow range = common;
    range.Benutzer = data_.table.text(user);
    range.Aktiviert = questions_->AktiviertDB(common.Buchungskreis, key, user);
    AddDataGroup(data_, *questions_, reporter_, range, false);
  }

  // The common rows that spreading adds: number keys times booking circles, less those that are
  // stored.
  std::int64_t lackingRows() const {
    std::unordered_set<std::string> keys;
    for (const RangeRow& row : data_.table) keys.insert(row.NSchl.str());
    std::int64_t count = 0;
    for (const BookingCircle& circle : data_.circles)
      count += std::ranges::count_if(keys, [&](const std::string& key) {
        return data_.table.findRange(alleBenutzer, circle.Buchungskreis, key) == -1;
      });
    return count;
  }

  // What deriving the users' rows looks at.
  std::int64_t userRows() const {
    const auto active = std::ranges::count_if(data_.table, &RangeRow::Aktiviert);
    const auto users = std::ranges::count_if(
        data_.users, [](const std::string& user) { return user != alleBenutzer; });
    return active * users;
  }

  const RangeData& data_;
  StatementSource& source_;
  Reporter& reporter_;
  Progress& progress_;
  const std::unique_ptr<RangeQuestions> questions_;
};

}  // namespace

bool LoadItems(const RangeData& data, StatementSource& source, Reporter& reporter,
               Progress& progress) {
  return reportingFailures(reporter, {generalModule, "LoadItems"}, [&] {
    const Work work(progress, "Nummernkreise werden geladen…");
    Loading(data, source, reporter, progress).run();
    data.known.follow(data.table);
    progress.finish();
  });
}

}  // namespace vexnumkr::basAllgemein
