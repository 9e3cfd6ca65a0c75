// What of the assignments has to be written so that those of the table are stored.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <vexnumkr/database.h>

#include "data/table/xarray.h"

namespace vexnumkr {

/// An assignment as it is stored.
struct StoredAssignment {
  std::int32_t Buchungskreis = 0;
  std::string NSchl;
  std::string Benutzer;
};

/// Equal assignments are counted: afterwards there are as many as the table has active rows.
struct AssignmentChanges {
  /// What is stored cannot be named row by row: all of the origin have to go.
  bool anew = false;
  /// Those of which too many are stored; all that are equal have to go.
  std::vector<StoredAssignment> leaving;
  std::int64_t leavingRecords = 0;
  /// The active rows whose assignments are to be stored after that, in the table's order; they
  /// belong to the table.
  std::vector<const RangeRow*> lacking;
};

/// Compares the records of wholeAssignments with the active rows of the table.
AssignmentChanges compareAssignments(const XArray& table, Recordset& stored,
                                     const std::string& Herkunft);

/// Those that have to be written when none is stored.
AssignmentChanges allAssignments(const XArray& table);

}  // namespace vexnumkr
