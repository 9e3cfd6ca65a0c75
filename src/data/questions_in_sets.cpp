#include "data/questions_in_sets.h"

#include <map>
#include <optional>
#include <utility>

#include <vexnumkr/error.h>

#include "data/sql/set_statements.h"
#include "data/table/assigned_ranges.h"
#include "data/table/loose_text.h"

namespace vexnumkr {
namespace {

// Nothing where a value is not what it has to be.
std::optional<SharedValues> sharedValuesOf(const Recordset& record) {
  try {
    return SharedValues{record.Fields("StartWert").toLong(),
                        record.Fields("AktuellerWert").toLong(), record.Fields("EndWert").toLong()};
  } catch (const Error&) {  // whoever asks for it meets the failure
    return std::nullopt;
  }
}

void addAssignment(AssignedRanges& assigned, const Recordset& record) {
  const Value circle = record.Fields("Buchungskreis");
  const Value key = record.Fields("NSchl");
  const Value user = record.Fields("Benutzer");
  // NULL equals no key and no user, so the engine would not find the row either.
  if (key.isNull() || user.isNull()) return;
  if (circle.isLong())
    assigned.add(circle.asLong(), key.toText(), user.toText());
  else if (circle.isText() && isNumber(circle.asText()))
    assigned.addDoubtful(circle.toLong(), key.toText(), user.toText());
}

class QuestionsInSets final : public RangeQuestions {
 public:
  QuestionsInSets(StatementSource& source, std::unique_ptr<RangeQuestions> exactly)
      : source_(source), exactly_(std::move(exactly)) {}

  void expectAssignments(const RangeData& data) override {
    if (assigned_) return;
    AssignedRanges assigned;
    for (const RangeRow& row : data.table) assigned.addKey(row.NSchl.str());
    for (const std::string& user : data.users) assigned.addUser(user);
    const auto records = source_.query(statement::assignments(source_.origin().Herkunft()));
    for (; !records->EndOfFile(); records->MoveNext()) addAssignment(assigned, *records);
    records->Close();
    assigned_ = std::move(assigned);
  }

  void expectSharedValues() override {
    if (isSharedRead_) return;
    const auto records = source_.queryAside(statement::sharedRanges(source_.origin().Herkunft()));
    for (; !records->EndOfFile(); records->MoveNext()) {
      const auto range = rangeIdOf(*records);
      if (!range) continue;
      shared_.emplace(*range, sharedValuesOf(*records));
      looselyShared_[range->Buchungskreis].add(range->NSchl);
    }
    records->Close();
    isSharedRead_ = true;
  }

  bool AktiviertDB(std::int32_t Buchungskreis, const std::string& NSchl,
                   const std::string& Benutzer) override {
    const Assigned found =
        assigned_ ? assigned_->find(Buchungskreis, NSchl, Benutzer) : Assigned::Perhaps;
    // The engine compares as its columns do; where that might matter it has the last word.
    return found == Assigned::Perhaps ? exactly_->AktiviertDB(Buchungskreis, NSchl, Benutzer)
                                      : found == Assigned::Yes;
  }

  SharedValues GetBuchungskreisData(std::int32_t Buchungskreis, const std::string& NSchl) override {
    if (isSharedRead_) {
      const auto found = shared_.find({Buchungskreis, NSchl});
      if (found != shared_.end() && found->second) return *found->second;
      if (looselyShared_[Buchungskreis].similar(NSchl).empty()) return {};
    }
    return exactly_->GetBuchungskreisData(Buchungskreis, NSchl);
  }

 private:
  StatementSource& source_;
  std::unique_ptr<RangeQuestions> exactly_;
  std::optional<AssignedRanges> assigned_;
  bool isSharedRead_ = false;
  std::map<RangeId, std::optional<SharedValues>> shared_;
  std::map<std::int32_t, LooseNames> looselyShared_;  // the keys, by booking circle
};

}  // namespace

std::unique_ptr<RangeQuestions> makeQuestionsInSets(StatementSource& source,
                                                    std::unique_ptr<RangeQuestions> exactly) {
  return std::make_unique<QuestionsInSets>(source, std::move(exactly));
}

}  // namespace vexnumkr
