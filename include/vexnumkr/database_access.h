// How the component asks the database.
#pragma once

namespace vexnumkr {

/// The host chooses when it makes the component. Both ways show the same and leave the same rows in
/// all tables; what differs is the statements, and so how long they take over a network.
enum class DatabaseAccess {
  /// A statement for each row, as every database layer takes them: a question for each user and
  /// range, a deletion of everything that is the origin's own, an insertion for each row.
  rowByRow,
  /// A statement for many rows: all assignments with one question, and of what is saved only that
  /// which differs from what is stored. Opening and saving take about ten statements each, however
  /// large the company is.
  inSets,
};

}  // namespace vexnumkr
