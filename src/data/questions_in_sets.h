// The database asked about many ranges at once.
#pragma once

#include <memory>

#include "data/range_questions.h"

namespace vexnumkr {

/// Answers from one select for all assignments of the origin, and one for all shared values; each
/// is sent by the procedure that expects them, and its failure is that procedure's. What only the
/// database can decide, since its columns may compare texts less exactly than by their code points,
/// goes to `exactly`. `source` is borrowed.
std::unique_ptr<RangeQuestions> makeQuestionsInSets(StatementSource& source,
                                                    std::unique_ptr<RangeQuestions> exactly);

}  // namespace vexnumkr
