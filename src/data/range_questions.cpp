#include "data/range_questions.h"

#include "data/questions_in_sets.h"
#include "data/range_answers.h"

namespace vexnumkr {
namespace {

// A statement for each question, and a report for each that fails.
class QuestionsRowByRow final : public RangeQuestions {
 public:
  QuestionsRowByRow(StatementSource& source, Reporter& reporter)
      : source_(source), reporter_(reporter) {}

  bool AktiviertDB(std::int32_t Buchungskreis, const std::string& NSchl,
                   const std::string& Benutzer) override {
    return basAllgemein::AktiviertDB(source_, reporter_, Buchungskreis, NSchl, Benutzer);
  }

  SharedValues GetBuchungskreisData(std::int32_t Buchungskreis, const std::string& NSchl) override {
    SharedValues values;
    basAllgemein::GetBuchungskreisData(source_, reporter_, Buchungskreis, NSchl, values.StartWert,
                                       values.EndWert, values.AktuellerWert);
    return values;
  }

 private:
  StatementSource& source_;
  Reporter& reporter_;
};

}  // namespace

std::unique_ptr<RangeQuestions> makeRangeQuestions(StatementSource& source, Reporter& reporter) {
  auto rowByRow = std::make_unique<QuestionsRowByRow>(source, reporter);
  if (source.access() == DatabaseAccess::rowByRow) return rowByRow;
  return makeQuestionsInSets(source, std::move(rowByRow));
}

}  // namespace vexnumkr
