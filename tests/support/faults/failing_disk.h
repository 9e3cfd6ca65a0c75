// A disk that is full, or does not keep what it is told to keep.
#pragma once

#include <string>

namespace vexnumkr::test {

/// What this program writes to the files of a folder fails while it is told to. One at a time.
/// REQUIRES: the program exports its symbols (ENABLE_EXPORTS), so that the engine finds the
/// functions of failing_disk.cpp in place of the C library's.
class FailingDisk {
 public:
  /// A path without symbolic links.
  explicit FailingDisk(std::string folder);
  ~FailingDisk();
  FailingDisk(const FailingDisk&) = delete;
  FailingDisk& operator=(const FailingDisk&) = delete;

  /// Writing fails: there is no space.
  void beFull(bool full) { isFull_ = full; }
  /// Keeping what was written fails.
  void loseSyncs(bool lose) { losesSyncs_ = lose; }
  bool fails() const { return isFull_ || losesSyncs_; }
  /// How many writes and syncs have failed.
  int failures() const { return failures_; }

  // For the functions in place of the C library's: whether they fail now.
  static bool refusesToWrite(int file);
  static bool refusesToSync(int file);

 private:
  bool concerns(int file) const;

  const std::string folder_;
  bool isFull_ = false;
  bool losesSyncs_ = false;
  int failures_ = 0;
};

}  // namespace vexnumkr::test
