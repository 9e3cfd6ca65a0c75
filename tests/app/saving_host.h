// The stand-alone host as a program of its own, with a user who changes everything and saves.
#pragma once

#include <QProcess>
#include <QTemporaryDir>
#include <string>
#include <vector>

namespace vexnumkr::test {

/// Makes a SQLite file with 3,000 ranges of application 2, all active, whose numbers are not those
/// of their masks, and with rows that no save touches.
void createLargeCompany(const std::string& file);

/// Works on a copy of a database. The user presses "Automatisch", which gives every range other
/// numbers, confirms that, and presses "OK".
class SavingHost {
 public:
  explicit SavingHost(const std::string& original);

  /// Starts the host, which is killed at that one of its file operations, counted from 1, or not at
  /// all. See tests/support/programs/file_operations.cpp.
  void start(int killAt = 0);
  /// Waits for its end. Fails the test when it ends in another way than it has to.
  void finish();

  /// What the last run has done to the files, a line each.
  std::vector<std::string> operations() const;
  std::string file() const { return path("firma.db"); }
  /// The size of what a save that was not finished has left beside the database.
  qint64 unfinished() const;

 private:
  std::string path(const char* name) const;

  QTemporaryDir folder_;
  QTemporaryDir logFolder_;
  QProcess process_;
  bool isKilled_ = false;
};

}  // namespace vexnumkr::test
