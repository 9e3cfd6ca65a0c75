// Places for files that a program needs only while it runs.
#pragma once

#include <string>

namespace vexnumkr::scenario {

/// A new, empty folder; removed, with what is in it by then, when this goes. Error: 75.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder() { remove(); }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::string& path() const { return path_; }
  /// Removes it now; for programs that end without running destructors. Never fails.
  void remove() noexcept;

 private:
  std::string path_;
};

}  // namespace vexnumkr::scenario
