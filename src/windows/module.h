// The library file as it is loaded into a process.
#pragma once

#include <atomic>
#include <string>

#include "adapters/automation/com/com_headers.h"

namespace vexnumkr::server {

/// Counts what keeps the library file loaded. There is one per process, because the functions that
/// Windows calls in a library file belong to no object.
class Module {
 public:
  static Module& instance();

  void lock() { ++locks_; }
  void unlock() { --locks_; }
  /// From now on the library stays loaded until the process ends. Once there is a QApplication, Qt
  /// keeps a thread, window classes and thread-local memory whose code lies in it.
  void stay();
  bool canUnload() const { return locks_ == 0; }

  /// The whole path of the library file.
  static std::wstring path();

 private:
  std::atomic<long> locks_ = 0;
  std::atomic<bool> stays_ = false;
};

/// Keeps the library file loaded as long as it lives.
class ModuleLock {
 public:
  ModuleLock() { Module::instance().lock(); }
  ~ModuleLock() { Module::instance().unlock(); }
  ModuleLock(const ModuleLock&) = delete;
  ModuleLock& operator=(const ModuleLock&) = delete;
};

}  // namespace vexnumkr::server
