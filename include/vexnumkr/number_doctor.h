// Whether a database is set up so that the dialog and this library work with it.
#pragma once

#include <string>
#include <vector>

#include <vexnumkr/database.h>
#include <vexnumkr/export.h>

namespace vexnumkr::numbers {

/// One thing that was looked at.
struct Diagnosis {
  std::string name{};   ///< what, in English and lasting: "tables", "rollback"
  std::string title{};  ///< the same for people (German)
  bool isFine = true;
  std::string problem{};  ///< otherwise what is wrong (German), with the engine's words where they
                          ///< say it best
  std::string remedy{};   ///< and what to do about it
};

/// Looks at the tables and their columns, NULLs that keep the dialog from opening, whether the user
/// of the connection may read and write, whether keys, texts and truth values are what the dialog
/// takes them for, settings that change texts, whether others see what is not committed, whether a
/// roll-back takes everything back, whether a second connection can be opened, the users and the
/// server's clock; on a node of a Galera cluster also whether it is in step and every table has a
/// primary key. Everything, whatever fails.
///
/// Rows are written for that in a transaction that is rolled back; their booking circle is the
/// lowest number of all, their key "~vexnumkr". Where the roll-back does not work they are deleted
/// again.
///
/// `date` is today as "yyyymmdd". REQUIRES: no transaction runs on `connection`.
VEXNUMKR_API std::vector<Diagnosis> diagnose(Connection& connection, const std::string& date);

}  // namespace vexnumkr::numbers
