// What is asked of the database about single ranges while rows of the range table are made.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "data/range_data.h"
#include "data/statement_source.h"
#include "platform/reporter.h"

namespace vexnumkr {

/// What others have stored for a range of a booking circle that they share; 0 where nothing.
struct SharedValues {
  std::int32_t StartWert = 0;
  std::int32_t AktuellerWert = 0;
  std::int32_t EndWert = 0;
};

/// Made for one action of the user; what was answered once holds that long. The answers are those
/// of the procedures with these names, whichever way they are had.
class RangeQuestions {
 public:
  virtual ~RangeQuestions() = default;

  /// Announces that assignments of the table's keys, and shared values, will be asked for, in the
  /// procedure that has begun the work. Errors: the database's, when it is asked now.
  virtual void expectAssignments(const RangeData& data) { static_cast<void>(data); }
  virtual void expectSharedValues() {}

  virtual bool AktiviertDB(std::int32_t Buchungskreis, const std::string& NSchl,
                           const std::string& Benutzer) = 0;
  virtual SharedValues GetBuchungskreisData(std::int32_t Buchungskreis,
                                            const std::string& NSchl) = 0;

 protected:
  RangeQuestions() = default;
  RangeQuestions(const RangeQuestions&) = default;
  RangeQuestions& operator=(const RangeQuestions&) = default;
};

/// Asks in the way that `source` has; both are borrowed.
std::unique_ptr<RangeQuestions> makeRangeQuestions(StatementSource& source, Reporter& reporter);

}  // namespace vexnumkr
