#include "support/faults/failing_disk.h"

#include <dlfcn.h>
#include <unistd.h>

#include <array>
#include <cerrno>

namespace vexnumkr::test {
namespace {

FailingDisk* theDisk = nullptr;  // the engine's calls know no object

template <class Function>
Function* original(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

FailingDisk::FailingDisk(std::string folder) : folder_(std::move(folder)) { theDisk = this; }

FailingDisk::~FailingDisk() { theDisk = nullptr; }

bool FailingDisk::concerns(int file) const {
  std::array<char, 4096> path{};
  const std::string link = "/proc/self/fd/" + std::to_string(file);
  const ssize_t length = readlink(link.c_str(), path.data(), path.size() - 1);
  return length > 0 && std::string(path.data()).rfind(folder_, 0) == 0;
}

bool FailingDisk::refusesToWrite(int file) {
  const bool refuses = theDisk != nullptr && theDisk->isFull_ && theDisk->concerns(file);
  if (refuses) ++theDisk->failures_;
  return refuses;
}

bool FailingDisk::refusesToSync(int file) {
  const bool refuses = theDisk != nullptr && theDisk->losesSyncs_ && theDisk->concerns(file);
  if (refuses) ++theDisk->failures_;
  return refuses;
}

}  // namespace vexnumkr::test

using vexnumkr::test::FailingDisk;
using vexnumkr::test::original;

extern "C" {

ssize_t pwrite64(int file, const void* bytes, size_t count, off64_t place) {
  static auto* const real = original<ssize_t(int, const void*, size_t, off64_t)>("pwrite64");
  if (!FailingDisk::refusesToWrite(file)) return real(file, bytes, count, place);
  errno = ENOSPC;
  return -1;
}

int fdatasync(int file) {
  static auto* const real = original<int(int)>("fdatasync");
  if (!FailingDisk::refusesToSync(file)) return real(file);
  errno = EIO;
  return -1;
}

int fsync(int file) {
  static auto* const real = original<int(int)>("fsync");
  if (!FailingDisk::refusesToSync(file)) return real(file);
  errno = EIO;
  return -1;
}

}  // extern "C"
