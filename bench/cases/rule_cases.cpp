// The rules, held against sorting the tables that they run over.
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>

#include "bench/cases.h"
#include "bench/company.h"
#include "bench/sample_database.h"
#include "bench/session.h"
#include "hosting/renumbering.h"
#include "rules/activity.h"
#include "rules/validation.h"

namespace vexnumkr::bench {
namespace {

void require(bool condition, const char* what) {
  if (!condition) throw std::runtime_error(what);
}

struct SampleSession {
  explicit SampleSession(int scale)
      : database(scale), session(database.connectionString(), DatabaseAccess::rowByRow) {}

  SampleDatabase database;
  Session session;
};

// A table at work in a session, put back to what it was before each measurement.
class TableAtWork {
 public:
  TableAtWork(std::shared_ptr<Lazy<SampleSession>> session, XArray original)
      : session_(std::move(session)), original_(std::move(original)) {}

  void restore() { table().copyFrom(original_); }
  vexnumkr::Session& session() { return (**session_).session.session(); }
  XArray& table() { return session().XArray(); }

  void requireMessages(int count) {
    require((**session_).session.takeMessages() == count, "another number of messages");
  }

 private:
  std::shared_ptr<Lazy<SampleSession>> session_;
  XArray original_;
};

bool isValid(TableAtWork& at) {
  return basAllgemein::CheckValidity(at.table(), at.session().reporter()).holds;
}

using Work = std::function<void(TableAtWork&)>;

Measurement onTable(const std::shared_ptr<Lazy<TableAtWork>>& table, Work work) {
  return seconds([=] { work(**table); }, [=] { (**table).restore(); });
}

void sortForDisplay(TableAtWork& at) { at.table().sort(RowOrder::display); }
void sortForTree(TableAtWork& at) { at.table().sort(RowOrder::tree); }

void checkSound(TableAtWork& at) {
  require(isValid(at), "ranges in order were refused");
  at.requireMessages(0);
}
void checkBroken(TableAtWork& at) {
  require(!isValid(at), "ranges that overlap were let pass");
  at.requireMessages(0);
}
void checkActivity(TableAtWork& at) {
  basAllgemein::CheckActivity(at.table(), at.session().colUser(), at.session().reporter());
  at.requireMessages(0);
}
void numberFromMasks(TableAtWork& at) {
  require(basAllgemein::StartAutoNum(at.session()), "not numbered");
  at.requireMessages(1);
}

// The last two ranges in the order of display get the same numbers.
XArray lastPairBroken(std::int32_t rows) {
  XArray table = oneSequence(rows);
  XArray sorted = oneSequence(rows);
  sorted.sort(RowOrder::display);
  const std::int32_t last = sorted.size() - 1;
  const auto row = [&](std::int32_t place) {
    const RangeRow& range = sorted.at(place);
    return table.findRange(alleBenutzer, range.Buchungskreis, range.NSchl.str());
  };
  for (const ValueColumn value :
       {&RangeRow::StartWert, &RangeRow::AktuellerWert, &RangeRow::EndWert})
    table.setValue(row(last), value, (table.at(row(last - 1)).*value).toValue());
  return table;
}

}  // namespace

void addRuleCases(Comparisons& comparisons, const Scale& scale) {
  const std::int32_t rows = scale.sequenceRows;
  const int companyScale = scale.company;
  const auto session =
      lazily<SampleSession>([=] { return std::make_unique<SampleSession>(companyScale); });
  const auto table = [&](std::function<XArray()> make) {
    return lazily<TableAtWork>([=] { return std::make_unique<TableAtWork>(session, make()); });
  };
  const auto sound = table([=] { return oneSequence(rows); });
  const auto broken = table([=] { return lastPairBroken(rows); });
  const auto company = table([=] { return companyTable(companyScale); });

  const std::string inOneSequence =
      "check, " + std::to_string(rows) + " active common ranges in one sequence, ";
  comparisons.push_back({"check/sound", inOneSequence + "no defect",
                         "sorting the same table by the same four keys", 2.0,
                         onTable(sound, checkSound), onTable(sound, sortForDisplay)});
  comparisons.push_back({"check/broken", inOneSequence + "only the last pair overlaps",
                         "the same without a defect", 1.5, onTable(broken, checkBroken),
                         onTable(sound, checkSound)});
  comparisons.push_back({"activity", "activity, all users and ranges",
                         "sorting the same table by its three keys", 1.3,
                         onTable(company, checkActivity), onTable(company, sortForTree)});
  comparisons.push_back({"autonum", "autonum, all users and ranges with masks",
                         "sorting the same table", 1.5, onTable(company, numberFromMasks),
                         onTable(company, sortForDisplay)});
}

}  // namespace vexnumkr::bench
